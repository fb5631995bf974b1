// Reading alignment files: good ones, bad ones, and ones that change while they are read.
#include "core/ali_reader.h"
#include "core/inf_file.h"
#include "core/store.h"
#include "core/work_buffer.h"
#include "support/ali_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <memory>
#include <random>

using namespace kq;
using kq::test::AliFolder;
using namespace std::string_literals;

namespace {

// The checking pass line by line.
AliCheck check_plainly(const std::string& path)
{
    AliCheck check;
    nb_spec = nb_nuc_tot = type_seq = 0;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file{std::fopen(path.c_str(), "r"), std::fclose};
    int line_no = 2, feeds = 0;
    while (feeds < 2)
        if (std::getc(file.get()) == '\n') feeds++;
    for (;;) {
        int result = read_line(file.get(), 0, &line_no);
        if (result == -2 && nb_spec > 0) break;
        if (result == 0 && nb_spec == max_species) check.error = "Maximal number of species equals 20000";
        if (result == -2) check.error = "This file is empty";
        if (result == 0 && check.error.empty()) {
            result = read_line(file.get(), 1, &line_no);
            if (result == -2)
                check.error = "There is an identifier without a sequence at the end of the file";
            if (result == 0) result = interp_seq(line_no, &check.recoded);
        }
        if (result == -1) check.error = buffer;
        if (!check.error.empty()) break;
        nb_spec++;
    }
    check.nb_spec = nb_spec;
    check.nb_nuc_tot = nb_nuc_tot;
    check.type_seq = type_seq;
    return check;
}

const std::string headers = "#16S\n#Bacteria\n";

} // namespace

TEST(AliReader, AcceptsAndRejects)
{
    const std::string long_line(149997, 'A');
    const struct {
        const char* what;
        std::string bytes, error;
        int species = 0, columns = 0, type = 0, recoded = 0;
    } cases[] = {
        {"nothing", "", "First line does not begin with #"},
        {"no header", ">a\nACGT\n", "First line does not begin with #"},
        {"one header", "#a\n>a\nACGT\n", "Second line does not begin with #"},
        {"one header and nothing else", "#a\n", "Second line does not begin with #"},
        {"only headers", headers, "This file is empty"},
        {"only comments", headers + "# one\n# two\n", "This file is empty"},
        {"plain", headers + ">a\nACGT\n>b\nAC\n", "", 2, 4},
        {"comments anywhere", headers + "#\n>a\n# x\nACGT\n#y\n", "", 1, 4},
        {"comment without a line feed at the end", headers + ">a\nACGT\n#y", "", 1, 4},
        {"comment longer than a line can be", headers + "#" + long_line + "A\n>a\nACGT\n", "", 1, 4},
        {"no line feed after a sequence", headers + ">a\nACGT", "Line 4 is too long (MAXIMUM = 149999)"},
        {"no line feed after an identifier", headers + ">a", "Line 3 is too long (MAXIMUM = 149999)"},
        {"longest line", headers + ">a\n" + long_line + "\n", "", 1, 149997},
        {"line too long", headers + ">a\n" + long_line + "A\n", "Line 4 is too long (MAXIMUM = 149999)"},
        {"header too long", "#" + long_line + "AA\n#\n>a\nA\n", "Line 1 is too long (MAXIMUM = 150000)"},
        {"no identifier", headers + "ACGT\n", "Line 3 is not properly formatted: need for >Identifier"},
        {"empty line", headers + ">a\nACGT\n\n", "Line 5 is not properly formatted: need for >Identifier"},
        {"no sequence", headers + ">a\n", "There is an identifier without a sequence at the end of the file"},
        {"identifier for a sequence", headers + ">a\n>b\nACGT\n", "Character > is not a base (on line 4)"},
        {"all nucleic characters", headers + ">a\nACGUTN*-$ RYMWSKVHDBX?acgutnrymwskvhdbx\n", "", 1, 39},
        {"no base", headers + ">a\nAC1T\n", "Character 1 is not a base (on line 4)"},
        {"folded", headers + ">a\nACGT\n>b\nAe\n", "Character E is not a base (on line 6)"},
        {"protein after nucleic", headers + ">a\nACGT\n>b\nMKV\n>c\nLLL\n",
         "Character L is not a base (on line 8)"},
        {"protein", headers + ">a\nacdefghiklmnpqrstvwy*-$ X?\n", "", 1, 26, 1},
        {"B and Z", headers + ">a\nEBZb\n>b\nz\n", "", 2, 4, 1, 4},
        {"no amino acid after a B", headers + ">a\nEBO\n",
         "Character O (79) is not an amino acid (on line 4)", 0, 0, 1, 1},
        {"not ASCII", headers + ">a\nE\xe9\n", "Character \xe9 (233) is not an amino acid (on line 4)", 0, 0,
         1},
        {"NUL in a sequence", headers + ">a\nA\0C\n"s, "Line 4 contains a NUL character"},
        {"NUL behind a carriage return", headers + ">a\nAC\r\0\n"s, "Line 4 contains a NUL character"},
        {"NUL in an identifier", headers + ">a\0b\nAC\n"s, "Line 3 contains a NUL character"},
        {"NUL in a header", "#a\0b\n#c\n>a\nA\n"s, "Line 1 contains a NUL character"},
        {"NUL in a comment", headers + "#\0\n>a\nAC\n"s, "", 1, 2},
        {"empty sequences", headers + ">a\n\n>b\n\n", "", 2, 0},
        {"carriage returns", "#16S\r\n#Bacteria\r\n>a\r\nACGT\r\n>b\r\nAC\r\n", "", 2, 4},
        {"letters behind a carriage return", headers + ">a\nACG\rEEE!\n", "", 1, 3},
    };
    const AliFolder folder;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        folder.write("x.ali", c.bytes);
        const auto check = check_ali(folder.path("x.ali"));
        EXPECT_TRUE(check.opened);
        EXPECT_EQ(check.error, c.error);
        EXPECT_EQ(check.recoded, c.recoded);
        EXPECT_EQ(check.type_seq, c.type);
        if (!c.error.empty()) continue;
        EXPECT_EQ(check.nb_spec, c.species);
        EXPECT_EQ(check.nb_nuc_tot, c.columns);
        EXPECT_EQ(load_ali(folder.path("x.ali"), check), "");
        EXPECT_EQ(store_error(), "");
    }
}

TEST(AliReader, CapacitiesAreExact)
{
    const AliFolder folder;
    const auto file_of = [](int species, int columns) {
        std::string bytes = headers + ">long\n" + std::string(static_cast<std::size_t>(columns), 'A') + "\n";
        for (int i = 1; i < species; i++)
            bytes += ">s\nA\n";
        return bytes;
    };
    folder.write("x.ali", file_of(20000, 14999));
    EXPECT_EQ(folder.load("x.ali"), "");
    EXPECT_EQ(lenseq_tot, 15000);
    EXPECT_EQ(row(19999).size(), 14999U);
    folder.write("x.ali", file_of(20000, 15000));
    EXPECT_EQ(folder.load("x.ali"), "There are too many characters, 300020000 (MAX = 300000000)");
    folder.write("x.ali", file_of(20001, 10));
    EXPECT_EQ(folder.load("x.ali"), "Maximal number of species equals 20000");
    // The carriage return has no room behind the longest row.
    std::string bytes = file_of(20000, 14999);
    bytes.insert(bytes.find("\n>s"), "\r");
    folder.write("x.ali", bytes);
    EXPECT_EQ(check_ali(folder.path("x.ali")).nb_nuc_tot, 14999);
    EXPECT_EQ(folder.load("x.ali"), "There are too many characters, 300020000 (MAX = 300000000)");
}

TEST(AliReader, FillsRowsAndFlags)
{
    const AliFolder folder;
    const std::string long_name(100, 'n');
    folder.write("x.ali", "#" + std::string(120, 'm') +
                              "\n#dom\r\n>one#MASKED#tail\r\nAC G\n"
                              ">two#NEW#x#MASKED#\nac\n>" +
                              long_name + "#NEW#\n\n");
    ASSERT_EQ(folder.load("x.ali"), "");
    EXPECT_EQ(std::string(molecule), std::string(99, 'm'));
    EXPECT_STREQ(domaine, "dom");
    EXPECT_EQ(nb_spec, 3);
    EXPECT_EQ(nb_nuc_tot, 4);
    EXPECT_EQ(lenseq_tot, 100000000);
    EXPECT_EQ(identifier(0), "one");
    EXPECT_EQ(identifier(1), "two");
    EXPECT_EQ(identifier(2), long_name.substr(0, 79));
    EXPECT_EQ(test::row_text(0), "AC G");
    EXPECT_EQ(test::row_text(1), "ac  ");
    EXPECT_EQ(test::row_text(2), "    ");
    EXPECT_EQ((std::array{mask[0], mask[1], mask[2]}), (std::array{-1, -1, 0}));
    EXPECT_EQ((std::array{new_est[0], new_est[1], new_est[2]}), (std::array{0, -1, -1}));
    EXPECT_EQ((std::array{pc_len[0], pc_len[1], pc_len[2]}), (std::array{75, 50, 0}));
    EXPECT_EQ(evalue[0], (std::array{-1.0, -1.0}));
    EXPECT_STREQ(caractere, "*TGKCYSBAWRDMHVN ");
    EXPECT_EQ(modif, 255);
    // A smaller alignment leaves nothing of the larger one behind.
    folder.write("x.ali", headers + ">a\nACU\n");
    ASSERT_EQ(folder.load("x.ali"), "");
    EXPECT_EQ(new_est[2], 0);
    EXPECT_EQ(pc_len[1], 0);
    EXPECT_STREQ(caractere, "*UGKCYSBAWRDMHVN ");
}

TEST(AliReader, AgreesWithTheLineByLineReader)
{
    constexpr unsigned seed = 20070516;
    std::mt19937 random(seed);
    const AliFolder folder;
    const std::string usual = "ACGTUN*- ", odd = "EBZ>#\r1x\xe9"s + '\0';
    const int lengths[] = {0, 1, 15, 16, 17, 31, 32, 33, 1000};
    for (int round = 0; round < 400; round++) {
        std::string bytes = headers;
        for (int line = 0, lines = static_cast<int>(random() % 9); line < lines; line++) {
            std::string text = line % 2 ? "" : ">";
            for (int i = lengths[random() % std::size(lengths)]; i > 0; i--)
                text += usual[random() % usual.size()];
            if (random() % 4 == 0 && !text.empty()) text[random() % text.size()] = odd[random() % odd.size()];
            bytes += text + "\n";
        }
        if (random() % 8 == 0) bytes.resize(bytes.size() - (bytes.size() > headers.size()));
        if (random() % 4 == 0) bytes.insert(headers.size(), "# a comment\n");
        folder.write("x.ali", bytes);
        const auto fast = check_ali(folder.path("x.ali"));
        const auto plain = check_plainly(folder.path("x.ali"));
        ASSERT_EQ(fast.error, plain.error) << "seed " << seed << " round " << round << "\n" << bytes;
        ASSERT_EQ(fast.recoded, plain.recoded) << bytes;
        ASSERT_EQ(fast.nb_spec, plain.nb_spec) << bytes;
        if (fast.error.empty()) {
            ASSERT_EQ(fast.nb_nuc_tot, plain.nb_nuc_tot) << bytes;
        }
    }
}

TEST(AliReader, LinesMayCrossTheReadingBlock)
{
    const AliFolder folder;
    const auto row_of = [](int i) {
        return std::string(static_cast<std::size_t>(90000 + 137 * i), "ACGT"[i % 4]);
    };
    std::string bytes = headers;
    for (int i = 0; i < 40; i++)
        bytes += ">s" + std::to_string(i) + "\n" + row_of(i) + "\n";
    folder.write("x.ali", bytes);
    ASSERT_EQ(folder.load("x.ali"), "");
    for (int i = 0; i < 40; i++) {
        EXPECT_EQ(identifier(i), "s" + std::to_string(i));
        EXPECT_TRUE(test::row_text(i) == row_of(i) + std::string(row(39).size() - row_of(i).size(), ' '))
            << i;
    }
}

TEST(AliReader, ChangesBetweenThePassesAreNoticed)
{
    const AliFolder folder;
    const std::string path = folder.path("x.ali");
    const std::string before = headers + ">a\nACGT\n>b\nAC\n";
    // All but the first are as long as before and get the old time of change: only their contents tell.
    const struct {
        const char* what;
        std::string bytes;
        bool must_fail = true;
    } cases[] = {
        {"longer", before + ">c\nA\n"},
        {"a longer sequence", headers + ">a\nACGTA\n>\nAC\n"},
        {"another species", headers + ">a\nA\n>\nC\n>c\nAC\n"},
        {"one species less", headers + "#a\nACGT\n>b\nAC\n"},
        {"no base", headers + ">a\nAC.T\n>b\nAC\n"},
        {"protein", headers + ">a\nLCGT\n>b\nAC\n"},
        {"NUL", headers + ">a\nAC\0T\n>b\nAC\n"s},
        {"other bases", headers + ">a\nTTTT\n>b\nTT\n", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        folder.write("x.ali", before);
        const auto check = check_ali(path);
        ASSERT_EQ(check.error, "");
        const auto time = std::filesystem::last_write_time(path);
        folder.write("x.ali", c.bytes);
        std::filesystem::last_write_time(path, time);
        const auto error = load_ali(path, check);
        EXPECT_EQ(error, c.must_fail ? "The file " + path + " has changed since it was checked" : "");
        EXPECT_EQ(nb_spec, c.must_fail ? 0 : 2);
        EXPECT_EQ(ident == nullptr, c.must_fail);
        EXPECT_EQ(store_error(), "");
    }
    folder.write("x.ali", before);
    const auto check = check_ali(path);
    std::filesystem::remove(path);
    EXPECT_NE(load_ali(path, check).find("Problem in opening file " + path), std::string::npos);
    EXPECT_EQ(nb_spec, 0);
}

TEST(AliReader, WhatIsNoFileIsRefused)
{
    const AliFolder folder;
    std::filesystem::create_directory(folder.path("folder.ali"));
    mkfifo(folder.path("pipe.ali").c_str(), 0600); // opening it must not wait for a writer
    for (const char* name : {"absent.ali", "folder.ali", "pipe.ali"}) {
        const auto check = check_ali(folder.path(name));
        EXPECT_FALSE(check.opened) << name;
        EXPECT_TRUE(check.error.starts_with("Problem in opening file " + folder.path(name))) << check.error;
    }
}

TEST(InfFile, GivesScoresToTheFirstSpeciesWithTheAccession)
{
    const AliFolder folder;
    folder.write("x.ali", headers + ">one@X1\nA\n>two@X12\nA\n>three@Y3\nA\n>four@Y3\nA\n>five@Z\nA\n");
    folder.write("x.inf", "[ACC] X12\r\n[BLA] 1e-5 rest\r\n\r\n" // CRLF; not the first species
                          "[ORG] no\n[ACC] Y3\n[SYS] a\n[BLA]  2.5\n\n"
                          "[ACC] absent\n[BLA] 7\n[ACC] Z\n\n[BLA] 8\n\n" // the record of Z is closed
                          "[ACC] X1\n[ACC] Z\n[BLA] 3\n"                  // belongs to X1
                          "[ACC]\n[BLA] 9\n\n[ACC] Z\n[BLA] none\n");
    ASSERT_EQ(folder.load("x.ali"), "");
    read_inf_scores(folder.path("x.inf"));
    const std::array<double, 5> expected{3, 1e-5, 2.5, -1, -1};
    for (std::size_t i = 0; i < expected.size(); i++)
        EXPECT_EQ(evalue[i][0], expected[i]) << i;
    read_inf_scores(folder.path("absent.inf"));
}

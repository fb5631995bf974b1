// What the files of an analysis do beyond their texts: names, refusals, what is known before.
#include "analysis/analysed.h"
#include "analysis/distance_matrix.h"
#include "analysis/output_file.h"
#include "analysis/output_names.h"
#include "analysis/outputs.h"
#include "analysis/parameters.h"
#include "analysis/phylip_names.h"
#include "analysis/planned_outputs.h"
#include "core/work_buffer.h"
#include "editor/editor_test.h"
#include "screen/files.h"

#include <filesystem>
#include <numeric>
#include <random>

namespace kq {
namespace {

namespace fs = std::filesystem;
using test::Ending;
using Strings = std::vector<std::string>;

class Outputs : public test::EditorTest {
public:
    Outputs()
    {
        stop_clock(1179302400); // 16 May 2007, 8 hours
        work_in("work");
        file_NOM = "/d/zolt/data/five.nom";
        file_COL = "/d/zolt/data/five.col";
    }
    ~Outputs() override
    {
        libere_memoire_dist();
        analysed_reset();
        output_names_reset();
        parameters_reset();
        options_reset();
    }

protected:
    // The species in analysis order, the first `kept` positions but every fifth one.
    void analyse(const std::vector<int>& species, int kept)
    {
        write_file("seq/test.ali", "#\n#\n>a\nA\n");
        fs::last_write_time(
            path("seq/test.ali"),
            fs::file_time_type::clock::from_sys(std::chrono::sys_seconds{std::chrono::seconds{1136214245}}));
        std::ranges::copy(species, cor_auto.begin());
        nb_spec_auto = static_cast<int>(species.size());
        retain.assign(static_cast<std::size_t>(nb_nuc_tot) + 1, position_removed);
        retain.back() = end_of_positions;
        nb_nuc_keep = kept;
        for (std::size_t p = 0; kept > 0; p++)
            if (p % 5 != 4) {
                retain[p] = position_kept;
                kept--;
            }
        name_distances(type_seq);
        ASSERT_EQ(alloue_memoire_dist(), 0);
        for (int i = 0; i < nb_spec_auto; i++)
            for (int j = 0; j < i; j++)
                dist[cell(i, j, nb_spec_auto)] = static_cast<float>(i * i) * 7.F / static_cast<float>(j + 1);
        creer_ident_phylip();
    }
    void load_four()
    {
        load(Strings(4, std::string(80, 'A')));
        set_identifier(0, "Escherichia coli K12@AB 1");
        set_identifier(1, "Escherichia o'nyong");
        set_identifier(2, "Uncultured");
        set_identifier(3, "E  x");
        analyse({3, 0, 1, 2, 0}, 60);
    }
    // Plays the keys of `script` while it is written; what it returned.
    template <class Write>
    bool written(Write make, const char* script = "")
    {
        bool result = false;
        EXPECT_EQ(play(script, [&] { result = make(); }).ending, Ending::returned);
        return result;
    }
};

TEST_F(Outputs, PhylipNames)
{
    Strings names = {"",           "Homo",       "Homo",        "Homo     x",
                     "Homo     0", "exactly te", "exactly ten", "exactly t"};
    for (int i = 0; i < 1200; i++)
        names.push_back(i % 2 ? "Escherichia coli " + std::to_string(i) : i % 3 ? "Esch" : "Escherich0");
    load(Strings(names.size(), "A"));
    std::vector<int> order(names.size());
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), std::mt19937(7));
    for (std::size_t i = 0; i < names.size(); i++)
        set_identifier(static_cast<int>(i), names[i]);
    analyse(order, 1);

    Strings expected;
    for (const int species : order)
        expected.push_back((names[static_cast<std::size_t>(species)] + "          ").substr(0, 10));
    for (std::size_t i = expected.size(); i-- > 1;) {
        const auto equal =
            std::count(expected.begin(), expected.begin() + static_cast<std::ptrdiff_t>(i), expected[i]);
        if (equal == 0) continue;
        const std::string digits = std::to_string(equal - 1);
        expected[i] = expected[i].substr(0, 10 - digits.size()) + digits;
    }
    Strings made;
    for (const auto& name : ident_phylip)
        made.emplace_back(name.data());
    EXPECT_EQ(made, expected);
}

TEST_F(Outputs, NamesThatNexusWouldMisread)
{
    load_four();
    file_ALI = "it's $HOME.ali";
    ASSERT_TRUE(written([] { return write_file_NB('s'); }));
    nomfic = with_extension(nomfic, ".nex");
    ASSERT_TRUE(written(write_nexus_file));
    const std::string text = read_file("work/it's $HOME_0.nex");
    EXPECT_NE(text.find("savetrees file='it''s $HOME_0.tre' BRLENS"), std::string::npos);
}

TEST_F(Outputs, RefusedOrStoppedLeavesEverythingAsItWas)
{
    load_four();
    fs::create_directory(path("work/test_0.nbs"));
    write_file("work/test_1.nbs", "an older file");
    EXPECT_FALSE(written([] { return write_file_NB('s'); }, "Z"));
    EXPECT_FALSE(written([] { return write_file_NB('s'); }, "early Escape"));
    EXPECT_EQ(nb_sequence, 2) << "the names that follow are the same";
    for (const auto& [make, extension] :
         std::vector<std::pair<bool (*)(), const char*>>{{out_matrix_nj, ".mat"},
                                                         {write_paup_3_0, ".mac"},
                                                         {write_nexus_file, ".nex"},
                                                         {[] { return write_phylip(phylip_joined); }, ".puz"},
                                                         {write_njb, ".njb"},
                                                         {write_pir, ".pir"},
                                                         {write_msf, ".msf"},
                                                         {write_afas, ".fas"}}) {
        nomfic = with_extension(nomfic, extension);
        EXPECT_FALSE(written(make, "early Escape")) << extension;
    }
    EXPECT_EQ(file_names("work"), (Strings{"test_0.nbs", "test_1.nbs"}));
    EXPECT_EQ(read_file("work/test_1.nbs"), "an older file");
}

TEST_F(Outputs, WhatARunWillWriteIsKnownBefore)
{
    load_four();
    const auto names = [](int level) {
        std::string all;
        for (const auto& output : planned_outputs(level))
            all += output.name + ' ';
        return all;
    };
    EXPECT_EQ(names(1), "test-0.nbm test-0.mat test-0.arb ");
    EXPECT_EQ(names(2), names(1) + "test-1.nbm test-1.mat test-1.arb test_0.nbs test_0.mac ");
    EXPECT_EQ(names(3), names(2) +
                            "test-2.nbm test-2.mat test-2.arb test_1.nbs test_1.pml test_2.nbs test_2.puz "
                            "test_3.nbs test_3.njb test_4.nbs test_4.njb test_5.nbs test_5.njb ");

    const auto outputs = planned_outputs(3);
    EXPECT_EQ(outputs_problem(outputs), "");
    write_file("work/test_5.njb", "an older file");
    EXPECT_EQ(outputs_problem(outputs), "");
    fs::create_directory(path("work/test-1.arb"));
    EXPECT_EQ(outputs_problem(outputs), "test-1.arb is a directory");
    EXPECT_NE(
        outputs_problem(std::vector{PlannedOutput{"huge", std::uint64_t{1} << 60}}).find("not enough room"),
        std::string::npos);
}

TEST_F(Outputs, ADistanceInTheBuffer)
{
    ASSERT_TRUE(allocate_buffer());
    dist2buffer(12.345);
    EXPECT_STREQ(buffer, " 12.3");
}

} // namespace
} // namespace kq

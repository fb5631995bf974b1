// Rewriting lines of a species-to-group file: which line, at which place, and whatever happens meanwhile.
#include "screen/strings.h"
#include "support/ali_folder.h"
#include "support/system_calls.h"
#include "taxonomy/nom_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>

using namespace kq;
using namespace kq::test;

namespace {

using Names = std::vector<std::string>;

std::string rewritten(std::string_view text, const std::string& key, const std::string& group)
{
    const GroupLine change{key, group};
    return with_group_lines(text, {&change, 1});
}

// One change, line by line.
std::string plain_rewritten(const std::string& text, const GroupLine& change)
{
    Names lines;
    for (std::size_t start = 0; start < text.size(); start += lines.back().size())
        lines.push_back(text.substr(start, std::min(text.find('\n', start), text.size()) - start + 1));
    const auto name = [](const std::string& line) {
        const std::string before = line.substr(0, line.find_first_of(",\r\n"));
        return before.substr(0, before.find_last_not_of(' ') + 1);
    };
    const std::string fresh = change.key + " , " + change.group + "\n";
    const auto own = std::ranges::find(lines, change.key, name);
    if (own != lines.end())
        *own = fresh;
    else
        lines.insert(std::ranges::find_if(lines,
                                          [&](const std::string& line) {
                                              return stricmp(name(line).c_str(), change.key.c_str()) > 0;
                                          }),
                     fresh);
    std::string all;
    for (const auto& line : lines) {
        if (!all.empty() && !all.ends_with('\n')) all += '\n';
        all += line;
    }
    return all;
}

} // namespace

TEST(NomFile, ALineFindsItsPlace)
{
    const std::string name79(79, 'n'), long_line = "Long , " + std::string(140000, 'g') + "\n";
    const struct {
        std::string before, key, group, after;
    } cases[] = {
        {"", "Homo", "A", "Homo , A\n"},
        // In order without regard to case, which the name itself has.
        {"ant,A\nCat,B\n", "Bee", "C", "ant,A\nBee , C\nCat,B\n"},
        {"a_b,A\nab,B\n\xc3\xa9,C\n", "aZ", "D", "a_b,A\nab,B\naZ , D\n\xc3\xa9,C\n"},
        {long_line + "Mus,B\n", "Mus", "C", long_line + "Mus , C\n"},
        {long_line, "Long", "C", "Long , C\n"},
        // The reader knows 79 characters of a name.
        {name79 + "nn,A\n", name79, "C", name79 + " , C\n"},
        {name79 + ",A\n", std::string(78, 'n'), "C", std::string(78, 'n') + " , C\n" + name79 + ",A\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.before.substr(0, 80) + " <- " + c.key);
        EXPECT_TRUE(rewritten(c.before, c.key, c.group) == c.after)
            << rewritten(c.before, c.key, c.group).substr(0, 200);
    }
    EXPECT_FALSE(fits_in_nom_line("Homo, sapiens"));
}

TEST(NomFile, ManyChangesAreAsManySingleOnes)
{
    std::mt19937 random(1605);
    const auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const std::string letters = "aAbB c";
    const auto name = [&] {
        std::string text(1, "aAbBcC"[pick(6)]);
        for (int i = pick(4); i > 0; i--)
            text += letters[static_cast<std::size_t>(pick(6))];
        while (text.ends_with(' '))
            text.pop_back();
        return text;
    };
    for (int round = 0; round < 500; round++) {
        std::string text;
        for (int i = pick(12); i > 0; i--)
            text += name() + (pick(9) ? " , G" : "") + (pick(5) ? "\n" : "\r\n");
        if (pick(3) == 0 && text.ends_with('\n')) text.pop_back();
        std::vector<GroupLine> changes;
        std::string expected = text;
        for (int i = pick(15); i > 0; i--) {
            changes.push_back({name(), std::to_string(i)});
            expected = plain_rewritten(expected, changes.back());
        }
        ASSERT_EQ(with_group_lines(text, changes), expected) << "round " << round << "\n" << text;
    }
}

namespace {

// A .nom file with an older backup, and one change to it.
class NomFolder {
public:
    NomFolder()
    {
        folder.write("x.nom", before);
        folder.write("x.bak", older);
    }
    int rewrite() const { return rewrite_nom_file(folder.path("x.nom"), {&change, 1}).empty() ? 0 : 1; }
    std::string file() const { return folder.read("x.nom"); }
    std::string backup() const { return folder.read("x.bak"); }

    const AliFolder folder;
    const std::string older = "an older version\n", filler = "Aaa , " + std::string(5000, 'g') + "\n";
    const std::string before = filler + "Homo , A\n", after = filler + "Homo , B\n";
    const GroupLine change{"Homo", "B"};
};

} // namespace

TEST(NomFile, InterruptedAnywhereItLeavesCompleteFiles)
{
    for (const auto kind : {Interference::fail_one, Interference::fail_from, Interference::kill}) {
        int refusals = 0;
        for (int n = 1;; n++) {
            SCOPED_TRACE("kind " + std::to_string(kind) + ", call " + std::to_string(n));
            const NomFolder s;
            const auto run = run_child({kind, n}, [&] { return s.rewrite(); });
            if (!run.traced) GTEST_SKIP() << "processes cannot be traced here";
            EXPECT_TRUE(s.file() == s.before || s.file() == s.after);
            EXPECT_TRUE(s.backup() == s.older || s.backup() == s.before);
            if (kind == Interference::fail_one) {
                EXPECT_EQ(s.file() == s.after, run.status == 0);
                EXPECT_EQ(s.backup() == s.before, run.status == 0);
                EXPECT_EQ(s.folder.names(), (Names{"x.bak", "x.nom"}));
            }
            refusals += run.status != 0;
            if (kind == Interference::kill ? !run.killed : run.file_calls < n) break;
            EXPECT_EQ(s.rewrite(), 0) << "what was left behind is cleaned up";
            EXPECT_EQ(s.folder.names(), (Names{"x.bak", "x.nom"}));
        }
        EXPECT_GE(refusals, 11); // an open, write, flush, close and rename of each, and reading
    }
}

TEST(NomFile, WhatCannotBeReadIsLeftAlone)
{
    const AliFolder folder;
    const GroupLine change{"Homo", "B"};
    const std::string path = folder.path("x.nom");
    EXPECT_TRUE(rewrite_nom_file(path, {&change, 1}).starts_with("Problem in opening file " + path));
    std::filesystem::create_directory(path);
    EXPECT_EQ(rewrite_nom_file(path, {&change, 1}),
              "Problem in opening file " + path + " (it is not a regular file)");
    EXPECT_EQ(folder.names(), Names{"x.nom"});
}

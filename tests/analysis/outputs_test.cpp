// What the files of an analysis do beyond their texts: names, refusals, what is known before.
#include "analysis/analysed_fixture.h"
#include "analysis/output_file.h"
#include "analysis/outputs.h"
#include "analysis/phylip_names.h"
#include "analysis/planned_outputs.h"
#include "screen/files.h"

#include <filesystem>

namespace kq {
namespace {

namespace fs = std::filesystem;
using test::Ending;
using Strings = std::vector<std::string>;

class Outputs : public test::AnalysedTest {
public:
    Outputs() { work_in("work"); }

protected:
    // Four species, of which the analysis has one twice.
    void load_four()
    {
        load(Strings(4, std::string(60, 'A')));
        analyse({3, 0, 1, 2, 0}, {0, 1, 2, 3, 4, 5, 59});
        std::fill_n(dist, nb_spec_auto * nb_spec_auto, 1.0F);
        creer_ident_phylip();
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

TEST_F(Outputs, RefusedOrStoppedLeavesEverythingAsItWas)
{
    load_four();
    fs::create_directory(path("work/test_0.nbs"));
    write_file("work/test_1.nbs", "an older file");
    EXPECT_FALSE(written([] { return write_file_NB('s'); }, "Z"));
    EXPECT_FALSE(written([] { return write_file_NB('s'); }, "early Escape"));
    EXPECT_EQ(nb_sequence, 2) << "the names that follow are the same";
    const std::pair<bool (*)(), const char*> writers[] = {
        {out_matrix_nj, ".mat"},    {write_paup_3_0, ".mac"},
        {write_nexus_file, ".nex"}, {[] { return write_phylip(phylip_joined); }, ".puz"},
        {write_njb, ".njb"},        {write_pir, ".pir"},
        {write_msf, ".msf"},        {write_afas, ".fas"}};
    for (const auto& [make, extension] : writers) {
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

} // namespace
} // namespace kq

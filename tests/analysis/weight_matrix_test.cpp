// Weight matrices: what a file may hold, and what is said of one that holds something else.
#include "analysis/weight_matrix.h"
#include "support/ali_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace kq;
using namespace kq::test;

namespace {

// 400 numbers, of which those from `first` on are replaced by `rest`.
std::string numbers_and(int first, const std::string& rest, const std::string& separator = " ")
{
    std::string text;
    for (int k = 1; k < first; k++)
        text += std::to_string(k) + separator;
    return text + rest;
}

} // namespace

TEST(WeightMatrices, HoldWhatTheirFileSays)
{
    const Folder folder;
    for (const std::string separator : {" ", "\n", " \r\n\t", "\v\f"}) {
        folder.write("CONS.MAT", numbers_and(397, "-.5 +2e-3 0x10 1000000 and its source", separator));
        const auto matrix = read_weight_matrix(folder.path("CONS.MAT"));
        EXPECT_EQ(matrix.error, "");
        EXPECT_EQ(matrix.weights[0][0], 1);
        EXPECT_EQ(matrix.weights[1][0], 21) << "row by row";
        EXPECT_EQ(matrix.weights[19][15], 396);
        EXPECT_EQ(matrix.weights[19][16], -0.5);
        EXPECT_EQ(matrix.weights[19][17], 0.002);
        EXPECT_EQ(matrix.weights[19][18], 16);
        EXPECT_EQ(matrix.weights[19][19], 1e6);
    }
}

TEST(WeightMatrices, SayWhatIsWrongWithTheirFile)
{
    const Folder folder;
    const struct {
        std::string bytes, problem;
    } cases[] = {
        {"", "Number 1 of the 400 weights in # is missing"},
        {numbers_and(400, ""), "Number 400 of the 400 weights in # is missing"},
        {numbers_and(7, "A C D E F"), "Number 7 of the 400 weights in # is no number"},
        {numbers_and(401, "", ","), "Number 2 of the 400 weights in # is no number"},
        {std::string("1\0 1", 4), "Number 2 of the 400 weights in # is no number"},
    };
    const auto problem_with = [&folder](const std::string& name) {
        auto error = read_weight_matrix(folder.path(name)).error;
        if (const auto at = error.find(folder.path(name)); at != error.npos)
            error.replace(at, folder.path(name).size(), "#");
        return error;
    };
    for (const auto& [bytes, problem] : cases) {
        folder.write("CONS.MAT", bytes);
        EXPECT_EQ(problem_with("CONS.MAT"), problem) << bytes.substr(0, 99);
    }
    for (const std::string number : {"nan", "-inf", "1e999", "1000001", "-999999999999999999999999999"}) {
        folder.write("CONS.MAT", numbers_and(9, number));
        EXPECT_EQ(problem_with("CONS.MAT"),
                  "Number 9 of the 400 weights in # is not between -1000000 and 1000000");
    }
    EXPECT_EQ(problem_with("NOCONS.MAT"), "Problem in opening file # (No such file or directory)");
    ASSERT_EQ(mkfifo(folder.path("PIPE.MAT").c_str(), 0600), 0);
    EXPECT_EQ(problem_with("PIPE.MAT"), "Problem in opening file # (it is not a regular file)");
    ASSERT_EQ(mkdir(folder.path("IDENTITE.MAT").c_str(), 0700), 0);
    EXPECT_EQ(problem_with("IDENTITE.MAT"), "Problem in opening file # (it is not a regular file)");
}

#include "support/golden.h"

#include "screen/text.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

namespace kq::test {

namespace {

std::vector<std::string> lines_of(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

// Both texts line by line; of a line that differs, the expected ("-") and the actual one ("+").
std::string difference(const std::string& expected, const std::string& actual)
{
    const auto left = lines_of(expected), right = lines_of(actual);
    std::string text;
    for (std::size_t i = 0; i < std::max(left.size(), right.size()); i++) {
        const bool same = i < left.size() && i < right.size() && left[i] == right[i];
        if (same) {
            text += "  " + left[i] + "\n";
            continue;
        }
        if (i < left.size()) text += "- " + left[i] + "\n";
        if (i < right.size()) text += "+ " + right[i] + "\n";
    }
    return text;
}

} // namespace

testing::AssertionResult matches_golden(std::string_view file, const std::string& text)
{
    const auto path = std::filesystem::path(KQ_SOURCE_DIRECTORY) / "tests" / "golden" / file;
    if (const char* update = std::getenv("UPDATE_GOLDEN"); update && *update == '1') {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
        return testing::AssertionSuccess();
    }
    std::ifstream stream(path, std::ios::binary);
    std::stringstream expected;
    expected << stream.rdbuf();
    if (!stream) return testing::AssertionFailure() << "there is no " << path << "; it would be\n" << text;
    if (expected.str() == text) return testing::AssertionSuccess();
    return testing::AssertionFailure() << path << " differs (- expected, + here)\n"
                                       << difference(expected.str(), text);
}

testing::AssertionResult matches_golden_screen(std::string_view name)
{
    return matches_golden(std::string(name) + ".txt", screen_dump());
}

} // namespace kq::test

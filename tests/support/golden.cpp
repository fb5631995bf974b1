#include "support/golden.h"

#include "support/ali_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace kq::test {

std::string golden_text(std::string_view name, const std::string& actual)
{
    const auto path =
        std::filesystem::path(KQ_SOURCE_DIRECTORY) / "tests/golden" / (std::string(name) + ".txt");
    if (const char* update = std::getenv("UPDATE_GOLDEN"); update && *update == '1') {
        std::ofstream(path, std::ios::binary) << actual;
        return actual;
    }
    EXPECT_TRUE(std::filesystem::exists(path)) << path;
    return read_bytes(path);
}

} // namespace kq::test

// Where the real alignments for tests are.
#include "support/shared_data.h"

#include <cstdlib>
#include <filesystem>

namespace kq::test {

std::optional<std::string> shared_data()
{
    const char* named = std::getenv("KQ_SHARED_DATA");
    const std::string folder = named ? named : KQ_SOURCE_DIRECTORY "/../shared/data";
    if (!std::filesystem::exists(folder + "/facts.json")) return std::nullopt;
    return folder;
}

} // namespace kq::test

#include "support/ali_folder.h"

#include "core/ali_reader.h"
#include "core/lifecycle.h"
#include "core/store.h"
#include "core/work_buffer.h"
#include "screen/directories.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace kq::test {

namespace fs = std::filesystem;

AliFolder::AliFolder()
{
    static int counter = 0;
    folder_ = "/tmp/kqali" + std::to_string(getpid()) + "x" + std::to_string(++counter) + "/";
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    dir_SEQ = folder_;
    allocate_buffer();
    store_allocate();
    alignment_reset();
}

AliFolder::~AliFolder()
{
    alignment_reset();
    fs::remove_all(folder_);
}

std::string AliFolder::path(std::string_view name) const
{
    return folder_ + std::string(name);
}

void AliFolder::write(std::string_view name, std::string_view bytes) const
{
    std::ofstream(path(name), std::ios::binary) << bytes;
}

std::string AliFolder::read(std::string_view name) const
{
    return read_bytes(path(name));
}

std::vector<std::string> AliFolder::names() const
{
    std::vector<std::string> result;
    for (const auto& entry : fs::directory_iterator(folder_))
        result.push_back(entry.path().filename());
    std::sort(result.begin(), result.end());
    return result;
}

std::string AliFolder::load(const std::string& name) const
{
    file_ALI = name;
    const auto check = check_ali(path(name));
    return check.error.empty() ? load_ali(path(name), check) : check.error;
}

std::string read_bytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

std::string row_text(int species)
{
    const auto text = row(species);
    return {text.begin(), text.end()};
}

} // namespace kq::test

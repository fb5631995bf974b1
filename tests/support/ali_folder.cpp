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
#include <iterator>
#include <stdexcept>

namespace kq::test {

namespace fs = std::filesystem;

// The path is short and without a dot: file names are formed by cutting paths at their first one.
Folder::Folder()
{
    static int counter = 0;
    root_ = "/tmp/kq" + std::to_string(getpid()) + "_" + std::to_string(++counter);
    fs::remove_all(root_);
    fs::create_directory(root_);
}

Folder::~Folder()
{
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

void Folder::write(std::string_view below, std::string_view bytes) const
{
    std::ofstream stream(path(below), std::ios::binary);
    stream << bytes;
    if (!stream.flush()) throw std::runtime_error("cannot write " + path(below));
}

std::string Folder::read(std::string_view below) const
{
    return read_bytes(path(below));
}

std::vector<std::string> Folder::names(std::string_view below) const
{
    std::vector<std::string> result;
    for (const auto& entry : fs::directory_iterator(path(below)))
        result.push_back(entry.path().filename());
    std::sort(result.begin(), result.end());
    return result;
}

AliFolder::AliFolder()
{
    dir_SEQ = path();
    allocate_buffer();
    store_allocate();
    alignment_reset();
}

AliFolder::~AliFolder()
{
    alignment_reset();
}

std::string AliFolder::load(const std::string& name) const
{
    file_ALI = name;
    const auto check = check_ali(path(name));
    return check.error.empty() ? load_ali(path(name), check) : check.error;
}

std::string read_bytes(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string row_text(int species)
{
    const auto text = row(species);
    return {text.begin(), text.end()};
}

} // namespace kq::test

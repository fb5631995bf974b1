// A private folder that dir_SEQ names, for tests of what reads and writes alignments without any screen.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kq::test {

class AliFolder {
public:
    AliFolder(); // an empty folder; the alignment store as at program start
    ~AliFolder();
    AliFolder(const AliFolder&) = delete;
    AliFolder& operator=(const AliFolder&) = delete;

    std::string path(std::string_view name) const; // the folder ends with "/"
    void write(std::string_view name, std::string_view bytes) const;
    std::string read(std::string_view name) const;   // "" when there is none
    std::vector<std::string> names() const;          // every entry, hidden ones too, in byte order
    std::string load(const std::string& name) const; // checks and loads; what speaks against it, or ""

private:
    std::string folder_;
};

// The bytes of any file; "" when there is none.
std::string read_bytes(const std::string& path);

// The text of a row, without its closing NUL.
std::string row_text(int species);

} // namespace kq::test

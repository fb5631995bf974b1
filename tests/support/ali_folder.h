// A private folder for a test; as an AliFolder, the one that dir_SEQ names, for tests of what reads and
// writes alignments without any screen.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kq::test {

class Folder {
public:
    Folder(); // empty
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string path(std::string_view below = "") const { return root_ + "/" + std::string(below); }
    void write(std::string_view below, std::string_view bytes) const;
    std::string read(std::string_view below) const; // "" when there is none
    // Every entry of a folder, hidden ones too, in byte order.
    std::vector<std::string> names(std::string_view below = "") const;

private:
    std::string root_; // without "/" at its end
};

class AliFolder : public Folder {
public:
    AliFolder(); // the alignment store as at program start
    ~AliFolder();
    std::string load(const std::string& name) const; // checks and loads; what speaks against it, or ""
};

// The bytes of any file; "" when there is none.
std::string read_bytes(const std::string& path);

// The text of a row, without its closing NUL.
std::string row_text(int species);

} // namespace kq::test

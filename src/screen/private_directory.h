// platform: a directory of this program's own, for files that outside programs read and write.
#pragma once

#include "screen/cleanup.h"

#include <string>
#include <string_view>

namespace kq {

// Whether a name holds nothing but letters, digits, ".", "_" and inner "-", does not begin with ".", and has
// room for what programs add to it: none that gets it can take it for anything else. Other names stay outside
// a private directory.
bool is_plain_name(std::string_view name);

// A new empty directory that only this user can enter; it goes away with all it holds when the object is
// destroyed or the program ends.
class PrivateDirectory {
public:
    // Below the directory that TMPDIR names, else below the current one, else below /tmp.
    PrivateDirectory();
    // Absolute, without "/" at its end; empty when it could not be made. Its last part has letters, digits
    // and underscores only, what is above it may have any character.
    const std::string& path() const { return path_; }
    std::string path_of(const std::string& name) const { return path_ + '/' + name; }
    // Writes a new file in it (write_scratch_file); empty on success, else what failed.
    std::string write(const std::string& name, std::string_view bytes) const;
    // Why it could not be made, a sentence; else empty.
    const std::string& error() const { return error_; }

private:
    std::string path_, error_;
    Cleanup removal_;
};

} // namespace kq

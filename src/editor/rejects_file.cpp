// format: the rejects file (.non), which keeps the sequences deleted from an alignment.
#include "editor/rejects_file.h"

#include "core/residues.h"
#include "core/store.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/strings.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <optional>
#include <utility>

namespace kq {

namespace {

// Nothing when the file cannot be read whole.
std::optional<std::string> whole_file(const std::string& path)
{
    const File file(std::fopen(path.c_str(), "rb"));
    if (!file) return std::nullopt;
    std::string contents;
    std::array<char, 65536> piece;
    while (const auto count = std::fread(piece.data(), 1, piece.size(), file.get()))
        contents.append(piece.data(), count);
    if (std::ferror(file.get())) return std::nullopt;
    return contents;
}

} // namespace

std::string rejects_path()
{
    return with_extension(dir_SEQ + file_ALI, ".non");
}

std::string append_reject(int species, std::string_view reason)
{
    const auto path = rejects_path();
    std::string contents = text_format("#%s\n#%s\n", molecule, domaine);
    if (exists(path)) {
        auto earlier = whole_file(path);
        if (!earlier) return "cannot read " + path;
        contents = std::move(*earlier);
    }
    contents += text_format("#%.*s\n>%s\n", static_cast<int>(reason.size()), reason.data(),
                            identifier(species).data());
    std::ranges::remove_copy_if(row(species), std::back_inserter(contents), is_editable_gap);
    contents += '\n';

    NewFile file(path);
    file.write(contents);
    return file.commit() ? "" : file.error();
}

} // namespace kq

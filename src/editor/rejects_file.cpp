// format: the rejects file (.non), which keeps the sequences deleted from an alignment.
#include "editor/rejects_file.h"

#include "core/residues.h"
#include "core/store.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/strings.h"
#include "taxonomy/text_file.h"

#include <algorithm>
#include <iterator>

namespace kq {

std::string rejects_path()
{
    return with_extension(dir_SEQ + file_ALI, ".non");
}

std::string append_reject(int species, std::string_view reason)
{
    const auto path = rejects_path();
    std::string contents = text_format("#%s\n#%s\n", molecule, domaine);
    if (exists(path)) {
        if (std::string problem = read_whole_file(path, contents); !problem.empty()) return problem;
    }
    contents += text_format("#%.*s\n>%s\n", static_cast<int>(reason.size()), reason.data(),
                            identifier(species).data());
    std::ranges::remove_copy_if(row(species), std::back_inserter(contents), is_editable_gap);
    contents += '\n';
    return write_file_safely(path, contents);
}

} // namespace kq

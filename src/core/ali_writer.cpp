// format: writes .ali files; the safe save and the rescue copy.
#include "core/ali_writer.h"

#include "core/store.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/safe_replace.h"
#include "screen/strings.h"

#include <cstdlib>
#include <string_view>

namespace kq {

namespace {

constexpr std::string_view temporary_name = "KQ_SAUVE.TMP", backup_temporary_name = "KQ_BACKUP.TMP";

// The row as it is written: without trailing blanks.
std::string_view saved_text(int species)
{
    const auto text = row(species);
    std::size_t length = text.size();
    while (length && text[length - 1] == ' ')
        length--;
    return {text.data(), length};
}

bool is_saved(int species)
{
    return !destroy[static_cast<std::size_t>(species)];
}

std::string_view mask_mark(int species)
{
    return mask[static_cast<std::size_t>(species)] == -1 ? "#MASKED#" : "";
}

} // namespace

unsigned long long ali_text_size()
{
    unsigned long long size = std::string_view(molecule).size() + std::string_view(domaine).size() + 4;
    for (int i = 0; i < nb_spec; i++)
        if (is_saved(i)) size += identifier(i).size() + mask_mark(i).size() + saved_text(i).size() + 3;
    return size;
}

void write_ali_text(NewFile& file)
{
    file.write(text_format("#%s\n#%s\n", molecule, domaine));
    std::string line;
    for (int i = 0; i < nb_spec; i++) {
        if (!is_saved(i)) continue;
        line = '>';
        line += identifier(i);
        line += mask_mark(i);
        line += '\n';
        file.write(line);
        file.write(saved_text(i));
        file.write("\n");
    }
}

std::string save_ali()
{
    const std::string current = dir_SEQ + file_ALI, backup = with_extension(current, ".bak");
    const DirectoryLock lock(dir_SEQ);
    if (!lock.held()) return DirectoryLock::refusal(dir_SEQ);
    if (auto problem = cannot_replace(current, backup, ali_text_size()); !problem.empty()) return problem;

    NewFile fresh(current, dir_SEQ + std::string(temporary_name));
    write_ali_text(fresh);
    return replace_file(fresh, current, backup, directory_of(backup) + std::string(backup_temporary_name));
}

std::string rescue_ali()
{
    if (modif != 0 || nb_spec == 0 || !ident) return "";
    const char* home = std::getenv("HOME");
    const std::string directories[] = {dir_SEQ, "./", home ? std::string(home) + "/" : ""};
    const std::string stem = file_ALI.ends_with(".ali") ? file_ALI.substr(0, file_ALI.size() - 4) : file_ALI;
    for (const auto& directory : directories) {
        if (directory.empty() || !cannot_write(directory, ali_text_size()).empty()) continue;
        std::string path = directory + stem + "_rescue.ali";
        for (int i = 2; exists(path); i++)
            path = directory + stem + text_format("_rescue%d.ali", i);
        NewFile file(path);
        write_ali_text(file);
        if (file.commit()) return path;
    }
    return "";
}

} // namespace kq

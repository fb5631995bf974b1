// screen: reading and writing the files of the frame; what is wrong with them is fatal.
#include "taxonomy/frame_files.h"

#include "screen/dialogs.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/process_end.h"
#include "screen/text.h"
#include "taxonomy/fra_file.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_build.h"
#include "taxonomy/group_files.h"
#include "taxonomy/text_file.h"

#include <algorithm>

namespace kq {

std::vector<std::string> file_frame;
constinit int nb_frame = 0, no_frame = 0;
std::string file_NOM, file_COL;

namespace {

constexpr int warning_line = 5;

void end_on(const std::string& error)
{
    if (!error.empty()) erreur_fatale(error);
}

// Puts a new file in place; what prevents that is shown.
bool write_or_warn(const std::string& path, const std::string& text)
{
    const std::string error = write_file_safely(path, text);
    if (!error.empty()) affich_avert(error, warning_line);
    return error.empty();
}

// As before the colour file is read.
void forget_colours()
{
    for (int& colour : color_groupe)
        if (colour != -1) colour = color::light_grey;
}

} // namespace

std::string listed_name(const std::string& directory, const std::string& file)
{
    const std::string cut = with_extension(directory + file, "");
    return cut.substr(cut.rfind('/') + 1);
}

std::string frame_path(int frame)
{
    return dir_ZOLTEXE + file_frame[static_cast<std::size_t>(frame)] + ".fra";
}

void read_all_frame()
{
    file_frame = read_name_file(dir_ZOLTEXE, ".fra");
    if (file_frame.empty())
        erreur_fatale("There is no systematic frames (file .fra in the directory ZOLTEXE). "
                      "Create them using the program VORTANEL");
    file_frame.resize(std::min<std::size_t>(file_frame.size(), max_frames));
    for (std::string& name : file_frame)
        name = listed_name(dir_ZOLTEXE, name);
    std::sort(file_frame.begin(), file_frame.end());
    nb_frame = static_cast<int>(file_frame.size());
}

void write_FRA_NOM_COL()
{
    const std::string& frame = file_frame[static_cast<std::size_t>(no_frame)];
    write_or_warn(dir_DATA + "afas.ref", frame + "\n" + file_NOM + "\n" + file_COL + "\n");
}

void read_frame()
{
    const FraFile file = parse_fra(read_text_file(frame_path(no_frame)));
    end_on(file.error);
    end_on(build_frame(file.nodes));
    read_file_COL();
}

void read_file_NOM()
{
    end_on(assign_groups(read_text_file(file_NOM), file_NOM));
}

void read_file_COL()
{
    end_on(assign_colours(read_text_file(file_COL), file_COL));
}

void reread_file_COL()
{
    const auto before = color_groupe;
    std::string text, error = read_whole_file(file_COL, text);
    if (error.empty()) {
        forget_colours();
        error = assign_colours(text, file_COL);
    }
    if (error.empty()) return;
    color_groupe = before;
    affich_avert(error.substr(0, error.find('\n')), warning_line);
}

bool write_file_COL()
{
    return write_or_warn(file_COL, col_text());
}

} // namespace kq

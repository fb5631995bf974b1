// screen: leaves the editor for one of the package's companion programs.
#include "screen/launcher.h"

#include "screen/dialogs.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/process.h"
#include "screen/text.h"

#include <algorithm>
#include <string>

namespace kq {

namespace {

constexpr std::string_view program_names[] = {"kel",      "vellomar", "sirandel", "tovikrum", "nimbrask",
                                              "VELLOMAR", "SIRANDEL", "QUENTAVO", "MORDUSKI", "TOVIKRUM"};
constexpr int name_width = 9;

// Returns when the program cannot be started.
void start(std::string_view program, int line)
{
    const std::string name(program), path = dir_ZOLTEXE + name;
    if (!exists(path))
        affich_avert("The program " + name + " is not in the directory " + dir_ZOLTEXE, line);
    else if (!replace_program(path))
        affich_avert("There is not enough memory to load " + name, line);
}

} // namespace

const std::span<const std::string_view> companion_programs = program_names;

void choice_autre_exe(int line, std::span<const std::string_view> programs)
{
    constexpr int left = 10, frame_right = 50, window_right = 65;
    _setbgcolor(color::black);
    const int last = line + static_cast<int>(programs.size()) + 2;
    const Box frame = fit_box({line, left, last, frame_right});
    window_hp(frame.l1, frame.c1, frame.l2, frame.c2, color::light_green);
    outtext_inside(2, 3, color::magenta, "Choose the program you want to use :");
    // The list has the line below the title for its upper border.
    _settextwindow(frame.l1 + 1, frame.c1, frame.l2, frame.c2);
    const int chosen = choose_in_window(programs, name_width);
    if (chosen != escaped) start(programs[static_cast<std::size_t>(chosen)], line);
    _settextwindow(frame.l1, frame.c1, frame.l2, std::min(frame.c1 + window_right - left, _nb_col));
    _clearscreen(1);
}

} // namespace kq

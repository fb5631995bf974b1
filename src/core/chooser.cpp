// screen: the file chooser.
#include "core/chooser.h"

#include "core/ali_screen.h"
#include "core/lifecycle.h"
#include "core/shutdown.h"
#include "core/store.h"
#include "raster/grx.h"
#include "screen/dialogs.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/help.h"
#include "screen/launcher.h"
#include "screen/process_end.h"
#include "screen/text.h"
#include "screen/window.h"

#include <algorithm>
#include <ctime>
#include <string_view>

namespace kq {

constinit int nbline_file_ALI = 0;
constinit int max_file_ALI = 1;
constinit int nb_file_ALI = 0;
constinit int no_page = 0;
constinit int nb_page = 0;
constinit int nb_file_ALI_affiche = 0;

namespace {

constexpr int column_width = 32, name_width = 30;

// The highlighted name within the page; kept from one alignment to the next.
constinit int current = 0;

void whole_screen()
{
    _settextwindow(1, 1, _nb_line, _nb_col);
    _setbgcolor(color::black);
}

void grid_window()
{
    _settextwindow(6, 3, _nb_line - 2, _nb_col - 2);
    _setbgcolor(color::black);
}

std::string_view legend()
{
    if (nb_page == 1) return "F1:Help F2:Other F3:Frame F4:Groups ESCAPE:Exit";
    if (no_page == 0) return "F1:Help  F2:Other               F8:Next  ESCAPE:Exit";
    if (no_page == nb_page - 1) return "F1:Help  F2:Other  F7:Previous           ESCAPE:Exit";
    return "F1:Help  F2:Other  F7:Previous  F8:Next  ESCAPE:Exit";
}

} // namespace

void chooser_reset()
{
    current = 0;
}

// ---- listing ----------------------------------------------------------------------------------------------

void Chooser::init_choice_File()
{
    nbline_file_ALI = _nb_line - 7;
    max_file_ALI = std::max(1, (_nb_col - 4) / column_width) * nbline_file_ALI;
    nb_file_ALI = compte_nb_file(dir_SEQ, ".ali");
    nb_page = std::max(0, nb_file_ALI - 1) / max_file_ALI + 1;
    no_page = 0;
    read_name_file_ALI();
    current = std::min(current, nb_file_ALI_affiche - 1);
}

// Files may come and go while the screen is up: the page is what stands there now, and when nothing does the
// listing starts again.
void Chooser::read_name_file_ALI()
{
    const auto names = read_name_file(dir_SEQ, ".ali");
    if (names.empty()) {
        affich_avert("There is no file for this program", 10);
        end_program(1);
    }
    const int first = no_page * max_file_ALI, count = static_cast<int>(names.size());
    if (first >= count) return init_choice_File();
    filename_ALI_.assign(names.begin() + first, names.begin() + std::min(first + max_file_ALI, count));
    nb_file_ALI_affiche = static_cast<int>(filename_ALI_.size());
}

// ---- drawing ----------------------------------------------------------------------------------------------

void Chooser::draw(ChooserRedraw what, int old_index) const
{
    switch (what) {
    case ChooserRedraw::highlight:
        grid_window();
        color_case_choice_File(old_index, false);
        color_case_choice_File(current, true);
        break;
    case ChooserRedraw::grid:
        affich_bandeau();
        affich_all_case_choice_File();
        break;
    case ChooserRedraw::screen:
        affich_choice_File();
        break;
    case ChooserRedraw::nothing:
    case ChooserRedraw::done:
        break;
    }
    affich_time();
}

void Chooser::affich_choice_File() const
{
    whole_screen();
    window_hp(1, 1, _nb_line, _nb_col, color::light_grey);
    const auto files = taxonomy_files();
    const auto outtext_cut = [](int line, int column, int c, const std::string& text) {
        outtext_at(line, column, c, text.substr(0, static_cast<std::size_t>(std::max(0, _nb_col - column))));
    };
    outtext_cut(2, 3, color::light_grey, "File containing the systematic frame:");
    outtext_cut(3, 3, color::light_grey, "File containing the groups:");
    outtext_cut(4, 3, color::light_grey, "File containing the colors:");
    outtext_cut(2, 41, color::light_green, files.frame);
    outtext_cut(3, 31, color::light_green, files.groups);
    outtext_cut(4, 31, color::light_green, files.colors);

    const int middle = 5 * _gr_size_x - _gr_size_x / 2;
    _settextcolor(color::light_grey);
    _moveto(_gr_size_y - _gr_size_y / 2, middle);
    _lineto(_nb_col * _gr_size_y - _gr_size_y / 2, middle);
    affich_bandeau();
    affich_all_case_choice_File();
}

void Chooser::affich_bandeau() const
{
    whole_screen();
    const auto width = static_cast<std::size_t>(_nb_col - 4);
    std::string text(legend().substr(0, width));
    text.resize(width, ' ');
    outtext_at(_nb_line - 1, 3, color::light_cyan, text);
}

// Left out where the legend needs the room.
void Chooser::affich_time() const
{
    constexpr int width = 19;
    const int column = _nb_col - 20;
    if (column < 3 + static_cast<int>(legend().size()) + 1) return;
    const std::time_t now = current_time();
    char text[64] = {};
    whole_screen();
    if (ctime_r(&now, text)) outtext_at(_nb_line - 1, column, color::light_green, {text, width});
}

void Chooser::affich_all_case_choice_File() const
{
    grid_window();
    _clearscreen(1);
    for (int i = 0; i < nb_file_ALI_affiche; i++)
        color_case_choice_File(i, i == current);
}

// Expects the grid's text window.
void Chooser::color_case_choice_File(int index, bool highlighted) const
{
    const std::string_view name = filename_ALI_[static_cast<std::size_t>(index)];
    const int width = std::min(name_width, _nb_col - 4);
    outtext_at(index % nbline_file_ALI + 1, index / nbline_file_ALI * column_width + 1,
               highlighted ? color::yellow : color::light_grey,
               name.substr(0, static_cast<std::size_t>(width)));
}

// ---- keys -------------------------------------------------------------------------------------------------
//
// Boxes may have been wider than the grid: after them the whole screen is drawn. Cells that are as they were
// cost nothing.

ChooserRedraw Chooser::move(int step)
{
    const int count = nb_file_ALI_affiche;
    current = ((current + step) % count + count) % count;
    return ChooserRedraw::highlight;
}

ChooserRedraw Chooser::column_left()
{
    current -= nbline_file_ALI;
    if (current < 0) {
        const int line = current + nbline_file_ALI;
        const int last_column = (nb_file_ALI_affiche - 1) / nbline_file_ALI;
        current = last_column * nbline_file_ALI + line;
        if (current >= nb_file_ALI_affiche) current -= nbline_file_ALI;
    }
    return ChooserRedraw::highlight;
}

ChooserRedraw Chooser::column_right()
{
    current += nbline_file_ALI;
    if (current >= nb_file_ALI_affiche) current %= nbline_file_ALI;
    return ChooserRedraw::highlight;
}

ChooserRedraw Chooser::turn_page(int by)
{
    if (no_page + by < 0 || no_page + by >= nb_page) return ChooserRedraw::nothing;
    no_page += by;
    current = 0;
    read_name_file_ALI();
    return ChooserRedraw::grid;
}

ChooserRedraw Chooser::open_file()
{
    file_ALI = filename_ALI_[static_cast<std::size_t>(current)];
    const int result = confirm_choice_File_ALI();
    if (result == ok) return ChooserRedraw::done;
    libere_memoire();
    if (result == reread) {
        current = 0;
        init_choice_File();
    }
    return ChooserRedraw::screen;
}

ChooserRedraw Chooser::ask_to_exit()
{
    confirme_fin_prog(7);
    return ChooserRedraw::screen;
}

ChooserRedraw Chooser::help()
{
    _aide("KQ0", 6, 3, nbline_file_ALI, _nb_col - 2);
    return ChooserRedraw::screen;
}

ChooserRedraw Chooser::other_program()
{
    choice_autre_exe(6, companion_programs);
    return ChooserRedraw::screen;
}

// The page is another one when the number of lines or columns is.
ChooserRedraw Chooser::choose_geometry()
{
    choice_option_window(program_title);
    init_choice_File();
    return ChooserRedraw::screen;
}

void choice_File()
{
    Chooser chooser;
    chooser.init_choice_File();
    auto what = ChooserRedraw::screen;
    int old_index = current;
    while (what != ChooserRedraw::done) {
        chooser.draw(what, old_index);
        old_index = current;
        const auto* binding = chooser_keys.find(GrKeyRead());
        what = binding ? binding->run(chooser) : ChooserRedraw::nothing;
    }
}

} // namespace kq

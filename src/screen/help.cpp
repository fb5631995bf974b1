// screen: the paged viewer of help files.
#include "screen/help.h"

#include "raster/grx.h"
#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/strings.h"
#include "screen/text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <vector>

namespace kq {

int nb_aide = 0;
int nb_line_page = 0;
int nb_page_aide = 0;

namespace {

constexpr int longest_piece = 198; // characters read as one line

std::string help_file(std::string_view page_name)
{
    return shipped_file(std::string(page_name) + ".HLP");
}

// The lines of a help file as they are shown: longer ones than `width` are broken into several.
std::vector<std::string> help_lines(std::string_view page_name, int width)
{
    std::vector<std::string> lines;
    const File file{std::fopen(help_file(page_name).c_str(), "r")};
    std::array<char, longest_piece + 1> piece{};
    while (file && std::fgets(piece.data(), static_cast<int>(piece.size()), file.get())) {
        const std::string_view text(piece.data(), std::strcspn(piece.data(), "\r\n"));
        for (std::string& row : wrap_text(text, width))
            lines.push_back(std::move(row));
    }
    return lines;
}

int window_width()
{
    return y2_win - y1_win + 1;
}

// The keys of a page; only their names where a narrow window has no room for more.
std::string_view legend(int page)
{
    struct Legend {
        std::string_view whole, names;
    };
    static constexpr Legend legends[2][2] = {
        {{"ESCAPE:Cancel   F7:Previous  F8:Next", "ESC F7 F8"}, {"ESCAPE:Cancel   F7:Previous", "ESC F7"}},
        {{"ESCAPE:Cancel   F8:Next", "ESC F8"}, {"ESCAPE:Cancel", "ESC"}}};
    const bool first = page == 0, last = page == nb_page_aide - 1;
    const auto& [whole, names] = legends[first][last];
    return static_cast<int>(whole.size()) <= window_width() ? whole : names;
}

} // namespace

int _affich_page_aide(std::string_view page_name, int page)
{
    _clearscreen(1);
    // Read anew for each page: the file may be edited while it is looked at.
    const std::vector<std::string> lines = help_lines(page_name, window_width());
    const int first = page * nb_line_page;
    const int last = std::min({first + nb_line_page, nb_aide, static_cast<int>(lines.size())});
    _settextcolor(color::magenta);
    for (int i = first; i < last; i++) {
        _settextposition(i - first + 1, 1);
        _outtext(lines[static_cast<std::size_t>(i)]);
    }
    outtext_at(nb_line_page + 2, 1, color::light_cyan,
               legend(page).substr(0, static_cast<std::size_t>(std::max(0, window_width()))));
    for (;;) {
        const int pressed = GrKeyRead();
        if (pressed == key::escape || (pressed == key::f7 && page > 0) ||
            (pressed == key::f8 && page < nb_page_aide - 1))
            return pressed;
    }
}

void _aide(std::string_view page_name, int l1, int c1, int l2, int c2)
{
    if (!exists(help_file(page_name))) {
        affich_avert("The help file " + dir_ZOLTEXE + std::string(page_name) + ".HLP does not exist", l1);
        return;
    }
    const Box area = fit_box({l1, c1, l2, c2});
    const int width = std::max(1, area.c2 - area.c1 - 3);
    const int page_height = std::max(1, area.l2 - area.l1 - 3);
    nb_aide = static_cast<int>(help_lines(page_name, width).size());
    nb_line_page = std::min(page_height, nb_aide);
    nb_page_aide = (nb_aide - 1) / page_height + 1;

    _setbgcolor(color::black);
    const Box box = fit_box({area.l1, area.c1, area.l1 + nb_line_page + 3, area.c2});
    window_hp(box.l1, box.c1, box.l2, box.c2, color::light_magenta);
    _settextwindow(box.l1 + 1, box.c1 + 2, box.l2 - 1, box.c2 - 2);
    int page = 0;
    for (;;) {
        const int pressed = _affich_page_aide(page_name, page);
        if (pressed == key::escape) break;
        page += pressed == key::f8 ? 1 : -1;
    }
    _settextwindow(box.l1, box.c1, box.l2, box.c2);
}

} // namespace kq

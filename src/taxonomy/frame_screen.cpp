// screen: choosing the systematic frame.
#include "taxonomy/frame_screen.h"

#include "raster/grx.h"
#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/files.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/fra_file.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_files.h"
#include "taxonomy/text_file.h"

#include <algorithm>
#include <string_view>

namespace kq {

namespace {

constexpr int screen_columns = 80; // of the frame around the list
constexpr int scroll_step = 10;

} // namespace

int confirme_choice_frame(int index)
{
    const std::string path = frame_path(index);
    if (!readable(path)) {
        affich_avert("The file " + path + " can not be read", 3);
        return escaped;
    }
    const FraHeader header = parse_fra_header(read_text_file(path));
    window_hp(3, 3, 9, 78, color::cyan);
    outtext_inside(2, 3, color::light_green, "Systematic frame: " + path);
    outtext_inside(3, 3, color::light_green, "Version of " + header.version);
    outtext_inside(4, 3, color::light_green,
                   text_format("There are %d terminal nodes", header.terminal_nodes));
    outtext_inside(6, 3, color::light_cyan, "ENTER:Confirm   ESCAPE:Cancel");
    int pressed = 0;
    do
        pressed = GrKeyRead();
    while (pressed != key::enter && pressed != key::escape);
    _clearscreen(1);
    if (pressed == key::escape) return escaped;
    free_frame(proot);
    no_frame = index;
    read_frame();
    return ok;
}

namespace {

// The list of frames: a cursor on a view that begins at frame dec_liste.
class FrameList {
public:
    void run()
    {
        affich_screen();
        for (;;) {
            affich_list();
            const int pressed = GrKeyRead();
            if (pressed == key::escape) return;
            if (pressed == key::enter) {
                if (confirme_choice_frame(current_) == ok) return write_FRA_NOM_COL();
                affich_screen();
            }
            act(pressed);
        }
    }

private:
    static void affich_screen()
    {
        _setbgcolor(color::black);
        _settextwindow(1, 1, _nb_line, _nb_col);
        _clearscreen(0);
        window_hp(1, 1, _nb_line, screen_columns, color::light_grey);
        outtext_inside(2, 10, color::magenta, "List of existing systematic frames:");
    }

    void affich_list() const
    {
        const Box box = fit_box({3, 3, _nb_line - 1, screen_columns - 2});
        _settextwindow(box.l1, box.c1, box.l2, box.c2);
        for (int row = 0; row < rows_; row++)
            outtext_inside(
                row + 1, 1, dec_liste + row == current_ ? color::yellow : color::light_grey,
                padded(file_frame[static_cast<std::size_t>(dec_liste + row)], box.c2 - box.c1 - 1));
    }

    int last_page() const { return nb_frame - rows_; }

    // A step beyond the view takes the view along by ten rows.
    void step(int direction)
    {
        current_ = std::clamp(current_ + direction, 0, nb_frame - 1);
        if (current_ < dec_liste) dec_liste = std::max(0, dec_liste - scroll_step);
        if (current_ >= dec_liste + rows_) dec_liste = std::min(last_page(), dec_liste + scroll_step);
    }

    void page_up()
    {
        if (current_ == dec_liste) current_ = dec_liste = std::max(0, dec_liste - scroll_step);
        current_ = std::max(dec_liste, current_ - scroll_step);
    }

    void page_down()
    {
        if (current_ == dec_liste + rows_ - 1) dec_liste = std::min(last_page(), dec_liste + scroll_step);
        current_ = std::min(dec_liste + rows_ - 1, current_ + scroll_step);
    }

    void act(int pressed)
    {
        switch (pressed) {
        case key::up:
            return step(-1);
        case key::down:
            return step(1);
        case key::pgup:
            return page_up();
        case key::pgdn:
            return page_down();
        case key::home:
            current_ = dec_liste = 0;
            return;
        case key::end:
            current_ = nb_frame - 1;
            dec_liste = last_page();
            return;
        default:
            return;
        }
    }

    int current_ = no_frame;
    int rows_ = std::min(_nb_line - 3, nb_frame);
    int dec_liste = std::max(0, current_ - rows_ + 1); // first frame shown
};

} // namespace

void choice_frame()
{
    FrameList().run();
}

} // namespace kq

// screen: choosing the species-to-group and the group-colour file; restoring the last used ones.
#include "taxonomy/group_file_screen.h"

#include "raster/grx.h"
#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/directories.h"
#include "screen/fields.h"
#include "screen/files.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_files.h"
#include "taxonomy/text_file.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string_view>

namespace kq {

namespace {

// The two kinds of file that are chosen on the same pop-up.
struct Kind {
    std::string_view extension, title, prompt;
    std::string* path; // of the file in use
};

const Kind kind_nom{
    "nom", "Choice the file containing the connection species-group:", "File name (.nom):", &file_NOM};
const Kind kind_col{"col",
                    "Choice the file containing the connection color-group:", "File name (.col):", &file_COL};

constexpr std::string_view create_entry = "Create->";
constexpr int max_listed_name = 98;
constexpr int entry_width = 100;
constexpr int question_line = 5;

class GroupFileList {
public:
    explicit GroupFileList(const Kind& kind)
        : kind_(kind)
    {
        const std::string suffix = "." + std::string(kind.extension);
        for (const std::string& file : read_name_file(dir_DATA, suffix)) {
            std::string name = listed_name(dir_DATA, file);
            if (name.size() <= max_listed_name)
                names_.push_back(std::move(name));
            else // Deliberate: ".nom" for either kind.
                std::fprintf(stderr, "The name of this file, %s.nom, is too long\n\n", name.c_str());
        }
        std::sort(names_.begin(), names_.end());
        names_.emplace_back(create_entry);
    }

    // Sets the path of the file in use; 0, or -1 on ESCAPE.
    int run()
    {
        affich_choice_file();
        for (;;) {
            draw_entries();
            const int pressed = GrKeyRead();
            if (pressed == key::escape) return close(escaped);
            if (pressed == key::enter) {
                if (choose()) return close(ok);
                close(escaped);
                affich_choice_file();
            }
            act(pressed);
        }
    }

private:
    int count() const { return static_cast<int>(names_.size()); }

    // How much of the longest name the box cuts off.
    int hidden_columns() const
    {
        const auto longest = std::ranges::max(names_, {}, &std::string::size);
        return std::max(0, static_cast<int>(longest.size()) - columns_);
    }

    void affich_choice_file()
    {
        _setbgcolor(color::black);
        box_ = fit_box({1, 10, count() + 3, 70});
        window_hp(box_.l1, box_.c1, box_.l2, box_.c2, color::cyan);
        rows_ = std::max(1, box_.l2 - box_.l1 - 2);
        columns_ = std::clamp(box_.c2 - box_.c1 - 2, 1, entry_width);
        outtext_at(2, 3, color::magenta, kind_.title.substr(0, static_cast<std::size_t>(columns_)));
    }

    // The title takes the first line, so that the list begins one line lower than a menu's.
    void draw_entries()
    {
        first_ = std::clamp(first_, std::max(0, current_ - rows_ + 1), current_);
        _settextwindow(box_.l1 + 1, box_.c1, box_.l2, box_.c2);
        std::vector<std::string_view> shown;
        for (int i = first_; i < std::min(first_ + rows_, count()); i++) {
            const std::string_view name = names_[static_cast<std::size_t>(i)];
            shown.push_back(name.substr(std::min(name.size(), static_cast<std::size_t>(offset_)),
                                        static_cast<std::size_t>(columns_)));
        }
        for (int i = 0; i < static_cast<int>(shown.size()); i++)
            _color_case_option(shown, columns_, i, first_ + i == current_);
    }

    int close(int result)
    {
        _settextwindow(box_.l1, box_.c1, box_.l2, box_.c2);
        _clearscreen(1);
        return result;
    }

    void act(int pressed)
    {
        switch (pressed) {
        case key::up:
            return move(-1);
        case key::down:
            return move(1);
        case key::pgup:
            return move(-5);
        case key::pgdn:
            return move(5);
        case key::left: // what the box cuts off
            offset_ = std::max(0, offset_ - 8);
            return;
        case key::right:
            offset_ = std::min(hidden_columns(), offset_ + 8);
            return;
        default:
            return;
        }
    }

    void move(int steps) { current_ = ((current_ + steps) % count() + count()) % count(); }

    bool refuse(const std::string& why)
    {
        affich_avert(why, question_line);
        return false;
    }

    // Takes the current entry; false when the choice goes on.
    bool choose()
    {
        std::string name = names_[static_cast<std::size_t>(current_)];
        const bool create = current_ == count() - 1;
        if (create) {
            name.clear();
            if (saisir_nom_fichier(kind_.prompt, name, kind_.extension, dir_DATA, NameMode::unchecked,
                                   question_line) != ok)
                return false;
            name.resize(std::min(name.find('.'), name.size()));
        }
        const std::string path = dir_DATA + name + "." + std::string(kind_.extension);
        if (path.size() > max_path_length)
            return refuse(
                text_format("The path %s is too long (MAXIMUM = %d)", path.c_str(), max_path_length));
        if (create && !make_empty(path)) return false;
        if (!readable(path)) return refuse("The file " + path + " can not be read");
        *kind_.path = path;
        write_FRA_NOM_COL();
        return true;
    }

    // A file that exists is opened and keeps its contents.
    bool make_empty(const std::string& path)
    {
        if (exists(path)) return true;
        const std::string error = write_file_safely(path, "");
        return error.empty() || refuse(error);
    }

    const Kind& kind_;
    std::vector<std::string> names_;
    Box box_{};
    int current_ = 0, first_ = 0;
    int rows_ = 1, columns_ = 1; // room for entries in the box
    int offset_ = 0;             // columns scrolled away on the left
};

bool usable(const std::string& path)
{
    std::error_code error;
    return path.size() <= max_path_length && readable(path) && std::filesystem::is_regular_file(path, error);
}

} // namespace

int choice_file_NOM()
{
    return GroupFileList(kind_nom).run();
}

int choice_file_COL()
{
    if (GroupFileList(kind_col).run() != ok) return escaped;
    for (int& colour : color_groupe)
        if (colour != -1) colour = color::light_grey;
    read_file_COL();
    return ok;
}

void read_FRA_NOM_COL()
{
    constexpr std::size_t longest_line = 999;
    read_all_frame();
    no_frame = 0;
    file_NOM.clear();
    file_COL.clear();
    if (const std::string memory = dir_DATA + "afas.ref"; readable(memory)) {
        const std::string bytes = read_text_file(memory);
        std::string_view text = bytes;
        const auto frame = std::find(file_frame.begin(), file_frame.end(), take_line(text));
        if (frame != file_frame.end()) no_frame = static_cast<int>(frame - file_frame.begin());
        file_NOM = take_line(text).substr(0, longest_line);
        file_COL = take_line(text).substr(0, longest_line);
    }
    if (!usable(file_NOM))
        while (choice_file_NOM() != ok) {
        }
    if (!usable(file_COL))
        while (choice_file_COL() != ok) {
        }
}

} // namespace kq

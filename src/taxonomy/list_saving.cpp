// screen: archiving the selection as a species list.
#include "taxonomy/list_saving.h"

#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/directories.h"
#include "screen/fields.h"
#include "screen/files.h"
#include "screen/prompt_field.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/lis_file.h"
#include "taxonomy/selection.h"

#include <array>
#include <string>
#include <vector>

namespace kq {

namespace {

constexpr int warning_line = 7, question_line = 8;

// The box with the fields: a cursor among them that goes up and down.
class SaveForm {
public:
    TreeRedraw run()
    {
        draw();
        while (at_ < field_count) {
            const int pressed =
                input_texte(field().text, field().longest, first_field_line + at_, field().column);
            if (pressed == key::escape) break;
            if (pressed == key::up) go_back();
            if (pressed == key::enter || pressed == key::down) go_on();
        }
        _clearscreen(1);
        return TreeRedraw::tree;
    }

private:
    static constexpr int first_field_line = 2;
    static constexpr int name_field = 0, author_field = 1, title_field = 2, field_count = 3;

    struct Field {
        std::string prompt;
        int column, longest;
        std::string_view when_empty;
        std::string text{};
    };
    Field& field() { return fields_[static_cast<std::size_t>(at_)]; }
    const std::string& text(int index) const { return fields_[static_cast<std::size_t>(index)].text; }

    void draw()
    {
        _setbgcolor(color::black);
        window_hp(3, 3, 7, 153, color::cyan);
        int line = first_field_line;
        for (Field& field : fields_) {
            field.column = outtext_prompt(line, field.prompt, field.column);
            outtext_inside(line++, field.column, color::light_green, field.text);
        }
    }

    void fill_in()
    {
        if (field().text.empty()) field().text = field().when_empty;
        draw();
    }

    void go_back()
    {
        if (at_ == name_field) return ring_bell();
        fill_in();
        at_--;
    }

    void go_on()
    {
        fill_in();
        if (at_ == name_field) {
            if (const auto fault = list_name_fault(text(name_field)); !fault.empty()) {
                draw(); // without what an earlier fault has left on the frame
                return refuse_field(fault);
            }
        }
        at_++;
        if (at_ == field_count && !save()) {
            at_ = name_field;
            draw();
        }
    }

    bool save() const
    {
        const std::string path = list_path(text(name_field));
        if (confirme_ecrase_file(path, question_line) != ok) return false;
        chercher_specie_retenue();
        std::vector<std::string_view> names;
        for (const int species : working_list())
            names.push_back(identifier(species));
        const std::string problem =
            write_file_safely(path, lis_text(text(author_field), date(), text(title_field), names));
        if (problem.empty()) return true;
        affich_avert(problem, question_line);
        return false;
    }

    std::array<Field, field_count> fields_{
        {{text_format("Name of file of species list (%d characters):", max_list_name), 49, max_list_name, ""},
         {"Author:", 11, 29, "Unknown"},
         {"Title:", 10, 64, "Untitled"}}};
    int at_ = name_field;
};

} // namespace

std::string_view list_name_fault(std::string_view name)
{
    if (name.empty()) return "You must give a file name";
    if (name.find_first_of(forbidden_in_file_names) != std::string_view::npos)
        return "A character of this name is unauthorized in a file name";
    // The directory's listing leaves such names out: the list could never be loaded.
    if (name.front() == '.') return "A file name must not begin with a point";
    return "";
}

std::string list_path(std::string_view name)
{
    return dir_DATA + std::string(name) + std::string(lis_extension);
}

TreeRedraw sauvegarde_file_LIS()
{
    if (nb_retenu == 0) {
        affich_avert("You have not yet selected any species", warning_line);
        return TreeRedraw::tree;
    }
    return SaveForm().run();
}

} // namespace kq

// format: the display-options file kq_aff.sys in dir_DATA.
#include "editor/options_file.h"

#include "core/options.h"
#include "core/residues.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/strings.h"
#include "screen/text.h"

#include <charconv>
#include <fstream>
#include <vector>

namespace kq {

namespace {

std::string options_path()
{
    return dir_DATA + "kq_aff.sys";
}

// One number of the file: where it is kept and the largest value that makes sense (the smallest is 0).
struct OptionValue {
    int* value;
    int last;
};

// In the order of the file.
std::vector<OptionValue> option_values()
{
    constexpr int last_colour_class = 7;
    std::vector<OptionValue> values = {
        {&opt_tiret, 1}, {&opt_nogap, 1}, {&opt_couleur, 1}, {&opt_identificateur, 2}, {&opt_consensus, 2}};
    for (std::size_t code = 0; code < codes_arn; code++)
        values.push_back({&color_char_arn[code], last_colour_class});
    for (std::size_t code = 0; code < codes_prot; code++)
        values.push_back({&color_char_prot[code], last_colour_class});
    return values;
}

// options_reset also forgets the choice of score, which is no part of the file.
void set_defaults()
{
    const int kept = opt_evalue;
    options_reset();
    opt_evalue = kept;
}

void set_default_geometry()
{
    _type_font = default_font_type;
    _gr_size_x = default_cell_height;
    _gr_size_y = default_cell_width;
    _nb_line = default_lines;
    _nb_col = default_columns;
}

} // namespace

void read_config_affiche()
{
    std::ifstream file(options_path());
    if (!file) {
        set_defaults();
        if (!exists(dir_DATA + "pyx.sys")) set_default_geometry();
        return;
    }
    const auto values = option_values();
    std::vector<int> kept;
    for (const auto& option : values)
        kept.push_back(*option.value);
    set_defaults(); // for the values that are out of bounds
    bool reading = true;
    std::string word;
    for (std::size_t i = 0; i < values.size(); i++) {
        reading = reading && file >> word;
        int number = 0;
        const auto [rest, error] = std::from_chars(word.data(), word.data() + word.size(), number);
        if (error == std::errc::invalid_argument) reading = false;
        if (!reading)
            *values[i].value = kept[i];
        else if (error == std::errc() && number >= 0 && number <= values[i].last)
            *values[i].value = number;
    }
}

std::string sauve_config_affiche()
{
    std::string text;
    for (const auto& option : option_values())
        text += text_format("%d\n", *option.value);
    return write_file_safely(options_path(), text);
}

} // namespace kq

// screen: the box that asks for the parameters of an analysis.
#include "analysis/parameter_box.h"

#include "analysis/parameters.h"
#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/fields.h"
#include "screen/prompt_field.h"
#include "screen/strings.h"
#include "screen/text.h"

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>

namespace kq {

namespace {

constexpr int longest_text = 10;
constexpr int least_level = 1, most_level = 3, most_percent = 100;
constexpr double least_alpha = 1e-7, most_alpha = 1000;

// Text that is no number counts as 0, as with atoi; one too large is out of every bound.
long whole_number(const std::string& text)
{
    return std::strtol(text.c_str(), nullptr, 10);
}

bool level_is_valid(const std::string& text)
{
    return whole_number(text) >= least_level && whole_number(text) <= most_level;
}

bool percent_is_valid(const std::string& text)
{
    return whole_number(text) >= 0 && whole_number(text) <= most_percent;
}

// Compared in single precision, so that the bounds themselves are valid.
bool alpha_is_valid(const std::string& text)
{
    const auto number = static_cast<double>(static_cast<float>(std::atof(text.c_str())));
    return number >= least_alpha && number <= most_alpha;
}

struct Field {
    std::string_view prompt;
    int column;
    bool (*valid)(const std::string& text);
    std::string_view bounds; // what refuses other texts
    std::string text;
};

// The box with its fields, of which one is edited.
class ParameterForm {
public:
    // false on ESCAPE
    bool run()
    {
        while (at_ < fields_.size()) {
            draw();
            const int pressed = input_texte(field().text, longest_text, line_of(at_), shown_columns_[at_]);
            refused_ = false;
            if (pressed == key::escape) break;
            if (pressed == key::up && at_ > 0) at_--;
            if (pressed == key::enter || pressed == key::down) go_on();
        }
        covered_.put_back();
        return at_ == fields_.size();
    }

    const std::string& level() const { return fields_[0].text; }
    const std::string& percent() const { return fields_[1].text; }
    const std::string& shape() const { return fields_[2].text; }

private:
    static int line_of(std::size_t index) { return static_cast<int>(index) + 2; }
    Field& field() { return fields_[at_]; }

    void draw()
    {
        _setbgcolor(color::black);
        window_hp(15, 30, 19, 70, color::cyan);
        for (std::size_t i = 0; i < fields_.size(); i++) {
            shown_columns_[i] = outtext_prompt(line_of(i), fields_[i].prompt, fields_[i].column, number_room);
            outtext_inside(line_of(i), shown_columns_[i], color::light_green, fields_[i].text);
        }
        if (refused_) refuse_field(field().bounds);
    }

    void go_on()
    {
        refused_ = !field().valid(field().text);
        if (!refused_) at_++;
    }

    const ScreenCopy covered_;
    std::array<Field, 3> fields_{{
        {"Level of complexity (1-2-3):", 32, level_is_valid, "1, 2 or 3", text_format("%d", default_level)},
        {"Percent for removing positions: ", 35, percent_is_valid, "0 to 100",
         text_format("%d", default_percent)},
        {"Alpha parameter: ", 20, alpha_is_valid, "0.0000001 to 1000", text_format("%.2f", default_alpha)},
    }};
    std::array<int, 3> shown_columns_{};
    std::size_t at_ = 0;
    bool refused_ = false; // the field that is edited has just been entered in vain
};

} // namespace

int saisir_param_auto()
{
    ParameterForm form;
    if (!form.run()) return escaped;
    type_auto = static_cast<int>(whole_number(form.level()));
    percent_gap = static_cast<int>(whole_number(form.percent()));
    alpha = std::atof(form.shape().c_str());
    return ok;
}

} // namespace kq

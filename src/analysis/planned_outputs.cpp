// platform: the files that a run will write, known before it starts.
#include "analysis/planned_outputs.h"

#include "analysis/analysed.h"
#include "analysis/output_names.h"
#include "core/store.h"
#include "screen/files.h"

#include <filesystem>
#include <system_error>

namespace kq {

namespace {

// Upper bounds of what the writers make, but for numbers wider than their field.
class Sizes {
public:
    std::uint64_t header_file() const { return comment + species * (line + 2) + positions * 8 + 256; }
    std::uint64_t matrix() const { return comment + species * line + species * (species - 1) / 2 * 10; }
    std::uint64_t tree() const { return comment + species * (line + 2 * branch) + 64; }
    // A line or two for each species, with its name and characters.
    std::uint64_t sequences() const { return comment + species * (2 * line + positions) + 256; }

private:
    static constexpr std::uint64_t line = 2 * identifier_size; // around a name, were it all quotes
    static constexpr std::uint64_t branch = 24;                // "(,):-0.000000"
    static constexpr std::uint64_t comment = 2048;
    std::uint64_t species = static_cast<std::uint64_t>(nb_spec_auto);
    std::uint64_t positions = static_cast<std::uint64_t>(nb_nuc_keep);
};

} // namespace

std::vector<PlannedOutput> planned_outputs(int level)
{
    std::vector<PlannedOutput> outputs;
    const Sizes sizes;
    int matrices = 0, sequences = 0;
    const auto add_matrix = [&] {
        const std::string header = header_file_name(file_ALI, 'm', matrices++);
        outputs.push_back({header, sizes.header_file()});
        outputs.push_back({with_extension(header, ".mat"), sizes.matrix()});
        outputs.push_back({with_extension(header, ".arb"), sizes.tree()});
    };
    const auto add_sequences = [&](std::string_view extension) {
        const std::string header = header_file_name(file_ALI, 's', sequences++);
        outputs.push_back({header, sizes.header_file()});
        outputs.push_back({with_extension(header, extension), sizes.sequences()});
    };
    add_matrix();
    if (level >= 2) {
        add_matrix();
        add_sequences(".mac");
    }
    if (level >= 3) {
        add_matrix();
        for (const char* extension : {".pml", ".puz", ".njb", ".njb", ".njb"})
            add_sequences(extension);
    }
    return outputs;
}

std::string outputs_problem(std::span<const PlannedOutput> outputs)
{
    std::uint64_t bytes = 0;
    for (const PlannedOutput& output : outputs) {
        bytes += output.bytes;
        std::error_code error;
        const auto there = std::filesystem::symlink_status(output.name, error);
        if (std::filesystem::is_directory(there)) return output.name + " is a directory";
    }
    return cannot_write("./", bytes);
}

} // namespace kq

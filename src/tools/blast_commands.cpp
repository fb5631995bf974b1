// kernel: the files and command lines of a BLAST search.
#include "tools/blast_commands.h"

#include <algorithm>
#include <cstddef>

namespace kq {

namespace {

constexpr std::string_view harmless = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._-";
// The programs' own files have longer names, and none may have more than 255 characters.
constexpr std::size_t longest_stem = 200;

std::string safe_stem(std::string_view name)
{
    const bool safe = !name.empty() && name.size() <= longest_stem && name.front() != '-' &&
                      name.back() != '-' && name.find_first_not_of(harmless) == std::string_view::npos;
    return std::string(safe ? name : "alignment");
}

} // namespace

BlastSearch blast_search(std::string_view alignment, bool protein)
{
    const std::string stem = safe_stem(alignment), program = protein ? "blastp" : "blastn";
    return {.program = program,
            .database = stem + ".forblast.fasta",
            .query = stem + ".query.fasta",
            .output = stem + ".query." + program};
}

std::vector<std::string> formatdb_command(std::string_view directory, const BlastSearch& search)
{
    const bool protein = search.program == "blastp";
    return {std::string(directory) + "formatdb", "-i" + search.database, protein ? "-pT" : "-pF", "-oF"};
}

std::vector<std::string> blastall_command(std::string_view directory, const BlastSearch& search)
{
    return {std::string(directory) + "blastall",
            "-p" + search.program,
            "-d" + search.database,
            "-i" + search.query,
            "-o" + search.output,
            "-e10",
            "-FF",
            "-b10000",
            "-v10000",
            "-m8"};
}

} // namespace kq

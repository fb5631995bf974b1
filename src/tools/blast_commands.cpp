// format: the files and command lines of a BLAST search.
#include "tools/blast_commands.h"

#include "screen/private_directory.h"

namespace kq {

BlastSearch blast_search(std::string_view alignment, bool protein)
{
    const std::string stem(is_plain_name(alignment) ? alignment : "alignment"),
        program = protein ? "blastp" : "blastn";
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

// model: the directories that everything is read from and written to.
#include "screen/directories.h"

#include "screen/files.h"
#include "screen/process_end.h"

#include <cstdlib>

namespace kq {

std::string dir_ZOLTEXE;
std::string dir_ALI;
std::string dir_DATA;
std::string dir_ZOLT;
std::string dir_SEQ;
std::string dir_TYPE;

namespace {

std::string required_variable(const char* name)
{
    if (const char* value = std::getenv(name)) return value;
    write_error(std::string("The global variable ") + name + " is not defined");
    end_program(1);
}

void set_directory(std::string& directory, const char* name, const std::string& value)
{
    directory = value;
    if (directory.size() > max_directory_length)
        erreur_fatale(std::string("The variable ") + name + " is too long");
}

} // namespace

void init_dir()
{
    set_directory(dir_ZOLTEXE, "dir_ZOLTEXE", required_variable("ZOLTEXE") + "/zoltexe/");
    const std::string root = required_variable("ZOLT");
    set_directory(dir_ALI, "dir_ALI", root + "/zolt/ali/");
    set_directory(dir_DATA, "dir_DATA", root + "/zolt/data/");
    set_directory(dir_ZOLT, "dir_ZOLT", root + "/zolt/");
    // Deliberate: the user's alignments lie beside the package's tree, not in it.
    set_directory(dir_SEQ, "dir_SEQ", root + "/seq/");
    set_directory(dir_TYPE, "dir_TYPE", root + "/zolt/type/");
}

std::string shipped_file(const std::string& name)
{
    const std::string own = dir_ZOLTEXE + name;
    if (exists(own)) return own;
    const char* share = std::getenv("KQ_SHARE");
    const std::string installed = std::string(share ? share : KQ_SHARE_DIRECTORY) + "/" + name;
    return exists(installed) ? installed : own;
}

} // namespace kq

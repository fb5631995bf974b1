// format: weight matrices of proteins (.MAT).
#include "analysis/weight_matrix.h"

#include "screen/files.h"
#include "screen/strings.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cmath>
#include <cstdio>

namespace kq {

namespace {

// Null, and why, when there is no regular file of that name to read.
File open_regular(const std::string& path, std::string& error)
{
    // Without O_NONBLOCK a pipe of that name would hold the program for ever.
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    File file{fd < 0 ? nullptr : fdopen(fd, "r")};
    struct stat status {};
    if (!file)
        error = file_problem("Problem in opening file", path, errno);
    else if (fstat(fd, &status) != 0 || !S_ISREG(status.st_mode))
        error = "Problem in opening file " + path + " (it is not a regular file)";
    return error.empty() ? std::move(file) : nullptr;
}

// Reads the next number; what is wrong with it, or null.
const char* read_weight(std::FILE* file, double& weight)
{
    const int read = std::fscanf(file, "%lf", &weight);
    if (std::ferror(file)) return "cannot be read";
    if (read == EOF) return "is missing";
    if (read == 0) return "is no number";
    return std::abs(weight) <= max_weight ? nullptr : "is not between -1000000 and 1000000";
}

} // namespace

WeightMatrix read_weight_matrix(const std::string& path)
{
    static_assert(max_weight == 1000000);
    WeightMatrix matrix;
    const File file = open_regular(path, matrix.error);
    if (!file) return matrix;
    for (std::size_t k = 0; k < amino_acids * amino_acids; k++)
        if (const char* problem = read_weight(file.get(), matrix.weights[k / amino_acids][k % amino_acids])) {
            matrix.error =
                text_format("Number %zu of the 400 weights in %s %s", k + 1, path.c_str(), problem);
            break;
        }
    return matrix;
}

std::string weight_matrix_name(int distance)
{
    return distance == 2 ? "NOCONS.MAT" : distance == 3 ? "CONS.MAT" : "IDENTITE.MAT";
}

} // namespace kq

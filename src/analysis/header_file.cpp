// format: the header files of an analysis, which list its species and positions.
#include "analysis/header_file.h"

#include "analysis/analysed.h"
#include "analysis/comment_header.h"
#include "screen/strings.h"

#include <string>

namespace kq {

namespace {

constexpr int name_length = 79, names_a_line = 2, numbers_a_line = 13, line_of_stars = 80;

// The line's end after the n-th item (from 1) of so many.
bool ends_line(int n, int count, int a_line)
{
    return n % a_line == 0 || n == count;
}

} // namespace

bool put_header_file(char kind, const PutText& put)
{
    if (!write_comment(put, kind) ||
        !put(text_format("#Here is the list of the %d species used:\n", nb_spec_auto)))
        return false;
    for (int i = 0; i < nb_spec_auto; i++) {
        if (write_identificateur(put, i, name_length, identifier_binomial) < 0 ||
            !put(ends_line(i + 1, nb_spec_auto, names_a_line) ? "  \n" : "  "))
            return false;
    }
    std::string text = std::string(line_of_stars, '*') +
                       text_format("\nHere is the list of the %d selected positions:\n", nb_nuc_keep);
    int n = 0;
    for (const int position : kept_positions()) {
        text += text_format("%5d ", position + 1);
        if (ends_line(++n, nb_nuc_keep, numbers_a_line)) text += '\n';
    }
    return put(text);
}

} // namespace kq

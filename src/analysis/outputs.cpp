// screen: writes the files of an analysis.
#include "analysis/outputs.h"

#include "analysis/analysed.h"
#include "analysis/comment_header.h"
#include "analysis/distance_matrix.h"
#include "analysis/header_file.h"
#include "analysis/matrix_text.h"
#include "analysis/nexus_text.h"
#include "analysis/nj_tree.h"
#include "analysis/output_file.h"
#include "analysis/output_names.h"
#include "analysis/sequence_texts.h"
#include "core/store.h"
#include "core/work_buffer.h"
#include "screen/files.h"
#include "screen/strings.h"

#include <functional>

namespace kq {

namespace {

// The file that nomfic names, its text made by `text`.
bool write_output(const std::function<bool(const PutText&)>& text)
{
    OutputFile file;
    text(file.put()); // where it stops early, commit() says why
    return file.commit();
}

bool put_matrix(const PutText& put)
{
    constexpr int name_length = 80;
    if (!write_comment(put, 'm')) return false;
    std::string line;
    for (int i = 0; i < nb_spec_auto; i++) {
        line = identificateur(i, name_length, identifier_joined);
        append_numbers(line, {dist + cell(i, 0, nb_spec_auto), static_cast<std::size_t>(i)});
        if (!put(line += '\n')) return false;
    }
    return true;
}

} // namespace

bool write_file_NB(char kind)
{
    int& counter = kind == 'm' ? nb_matrice : nb_sequence;
    nomfic = header_file_name(file_ALI, kind, counter++);
    return write_output([kind](const PutText& put) { return put_header_file(kind, put); });
}

bool write_matrix()
{
    return write_output(put_matrix);
}

bool out_matrix_nj()
{
    nomfic = with_extension(nomfic, ".mat");
    return write_matrix() && calcul_arbre();
}

bool write_paup_3_0()
{
    return write_output(put_paup_3_0);
}

bool write_nexus_file()
{
    const std::string tree = with_extension(nomfic, ".tre");
    return write_output([&tree](const PutText& put) { return put_nexus(tree, put); });
}

bool write_phylip(PhylipMode mode)
{
    OutputFile file;
    file.write(phylip_first_line());
    return write_seq_phylip(file, mode);
}

bool write_seq_phylip(OutputFile& file, PhylipMode mode)
{
    put_phylip_species(mode, file.put());
    return file.commit();
}

bool write_njb()
{
    return write_output(put_njb);
}

bool write_pir()
{
    return write_output(put_pir);
}

bool write_msf()
{
    return write_output(put_msf);
}

bool write_afas()
{
    return write_output(put_afas);
}

void dist2buffer(double value)
{
    copy_field({buffer, buffer_size}, short_number(value));
}

} // namespace kq

// format: reads .ali alignment files.
#include "core/ali_reader.h"

#include "core/alphabet.h"
#include "core/columns.h"
#include "core/consensus.h"
#include "core/lifecycle.h"
#include "core/residues.h"
#include "core/store.h"
#include "core/work_buffer.h"
#include "screen/strings.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace kq {

namespace {

constexpr std::size_t longest_header_line = 149998;
constexpr std::string_view masked_mark = "#MASKED#", new_mark = "#NEW#";

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// ---- messages ---------------------------------------------------------------------------------------------

std::string too_long_message(int line_no, int maximum)
{
    return text_format("Line %d is too long (MAXIMUM = %d)", line_no, maximum);
}

std::string nul_message(int line_no)
{
    return text_format("Line %d contains a NUL character", line_no);
}

std::string outside_message(char c, int type, int line_no)
{
    if (c == 0) return nul_message(line_no);
    if (type == 0) return text_format("Character %c is not a base (on line %d)", c, line_no);
    return text_format("Character %c (%d) is not an amino acid (on line %d)", c,
                       static_cast<unsigned char>(c), line_no);
}

std::string not_an_identifier_message(int line_no)
{
    return text_format("Line %d is not properly formatted: need for >Identifier", line_no);
}

std::string changed_message(const std::string& path)
{
    return text_format("The file %s has changed since it was checked", path.c_str());
}

// ---- one walk over the file, used by both passes ----------------------------------------------------------

std::string_view before_carriage_return(std::string_view line)
{
    return line.substr(0, line.find('\r'));
}

bool is_protein(std::string_view sequence)
{
    return std::any_of(sequence.begin(), sequence.end(),
                       [](char c) { return protein_letters.find(upper(c)) != std::string_view::npos; });
}

struct Species {
    std::string_view identifier;
    bool masked = false, is_new = false;
    std::string_view text; // the sequence line up to its line feed
    int columns = 0;       // the part of it that counts: up to a carriage return
};

class AliParser {
public:
    explicit AliParser(const std::string& path)
        : reader_(path)
    {
    }
    LineReader& reader() { return reader_; }
    const std::string& error() const { return error_; }
    const std::string& molecule() const { return molecule_; }
    const std::string& domaine() const { return domaine_; }
    int type() const { return type_; }
    int recoded() const { return recoded_; }
    int count() const { return count_; }

    bool read_headers();
    // The next species, its views valid until the next call; none at the end or after an error.
    bool next(Species& species);

private:
    LineReader reader_;
    std::string error_, molecule_, domaine_;
    std::string identifier_line_; // survives the reading of the sequence line
    int line_no_ = 0, count_ = 0, type_ = 0, recoded_ = 0;

    bool fail(std::string message)
    {
        error_ = std::move(message);
        return false;
    }
    bool read_header(std::string& text, const char* missing);
    // The next line that is no comment; none at the end or after an error.
    bool next_line(std::string_view& line);
    bool check_sequence(Species& species);
};

bool AliParser::read_header(std::string& text, const char* missing)
{
    std::string_view line;
    const auto status = reader_.next(line, longest_header_line);
    line_no_++;
    if (status == LineReader::Status::failed) return fail(reader_.error());
    if (!line.starts_with('#')) return fail(missing);
    if (status == LineReader::Status::too_long)
        return fail(too_long_message(line_no_, static_cast<int>(longest_header_line) + 2));
    if (line.find('\0') != std::string_view::npos) return fail(nul_message(line_no_));
    text = before_carriage_return(line.substr(1)).substr(0, header_size - 1);
    return true;
}

bool AliParser::read_headers()
{
    return read_header(molecule_, "First line does not begin with #") &&
           read_header(domaine_, "Second line does not begin with #");
}

bool AliParser::next_line(std::string_view& line)
{
    for (;;) {
        const auto status = reader_.next(line, longest_line);
        if (status == LineReader::Status::end) return false;
        if (status == LineReader::Status::failed) return fail(reader_.error());
        line_no_++;
        if (line.starts_with('#')) continue;
        if (status == LineReader::Status::line) return true;
        return fail(too_long_message(line_no_, longest_line + 2));
    }
}

bool AliParser::next(Species& species)
{
    std::string_view line;
    if (!next_line(line)) return error_.empty() && count_ == 0 ? fail("This file is empty") : false;
    if (!line.starts_with('>')) return fail(not_an_identifier_message(line_no_));
    if (line.find('\0') != std::string_view::npos) return fail(nul_message(line_no_));
    if (count_ == max_species) return fail(text_format("Maximal number of species equals %d", max_species));

    identifier_line_ = before_carriage_return(line.substr(1));
    const std::string_view name = identifier_line_;
    const auto masked_at = name.find(masked_mark), new_at = name.find(new_mark);
    species.masked = masked_at != std::string_view::npos;
    species.is_new = new_at != std::string_view::npos;
    species.identifier = name.substr(0, std::min(masked_at, new_at)).substr(0, identifier_size - 1);

    if (!next_line(species.text)) {
        if (!error_.empty()) return false;
        return fail("There is an identifier without a sequence at the end of the file");
    }
    if (!check_sequence(species)) return false;
    count_++;
    return true;
}

bool AliParser::check_sequence(Species& species)
{
    const std::string_view text = species.text;
    if (count_ == 0) type_ = is_protein(before_carriage_return(text)) ? 1 : 0;
    std::size_t i = 0;
    for (;;) {
        i += first_outside_alphabet(text.substr(i), type_);
        if (i == text.size() || text[i] == '\r') break;
        const char c = upper(text[i]);
        if (type_ == 0 || (c != 'B' && c != 'Z')) return fail(outside_message(c, type_, line_no_));
        recoded_++;
        i++;
    }
    if (text.find('\0', i) != std::string_view::npos) return fail(nul_message(line_no_));
    species.columns = static_cast<int>(i);
    return true;
}

// ---- loading ----------------------------------------------------------------------------------------------

// Every per-species entry as it has to be before anything is known about a species.
void clear_species_arrays()
{
    mask.fill(0);
    new_est.fill(0);
    destroy.fill(0);
    pc_len.fill(0);
    evalue.fill({-1.0, -1.0});
    no_groupe.fill(-1);
    no_family.fill(0);
    row_length.fill(0);
}

// Room for the alignment that `check` describes; the message when memory is refused.
std::string allocate_for(const AliCheck& check)
{
    clear_species_arrays();
    std::string missing = store_begin(check.nb_spec, check.nb_nuc_tot);
    if (missing.empty() && !columns_allocate(check.nb_nuc_tot)) missing = "delcom";
    if (missing.empty()) missing = consensus_allocate(0, check.nb_nuc_tot);
    return missing.empty() ? "" : "Insufficient available memory (" + missing + ")";
}

// The species becomes row `index`; the caller has made sure that it fits the row.
void store_species(std::size_t index, const Species& species)
{
    copy_field({ident + index * identifier_size, identifier_size}, species.identifier);
    const auto columns = static_cast<std::size_t>(nb_nuc_tot);
    const std::size_t size = species.text.size(), length = std::max(size, columns);
    char* row_text = row_storage(static_cast<int>(index));
    std::memcpy(row_text, species.text.data(), size);
    std::memset(row_text + size, ' ', length - size);
    row_text[length] = 0;
    row_length[index] = static_cast<int>(length);
    const auto blanks = std::count(row_text, row_text + columns, ' ');
    pc_len[index] = nb_nuc_tot ? static_cast<int>((nb_nuc_tot - blanks) * 100 / nb_nuc_tot) : 0;
    mask[index] = species.masked ? -1 : 0;
    new_est[index] = species.is_new ? -1 : 0;
}

// The rows, with every bound checked again: the file may be another one by now.
std::string load_rows(const std::string& path, const AliCheck& check)
{
    AliParser parser(path);
    if (!parser.reader().opened()) return parser.reader().error();
    if (!(parser.reader().stamp() == check.stamp)) return changed_message(path);
    bool unchanged = parser.read_headers();
    Species species;
    while (unchanged && parser.next(species)) {
        const auto index = static_cast<std::size_t>(parser.count()) - 1;
        unchanged = parser.count() <= nb_spec && species.columns <= nb_nuc_tot &&
                    species.text.size() < static_cast<std::size_t>(lenseq_tot);
        if (unchanged) store_species(index, species);
    }
    if (!parser.reader().error().empty()) return parser.reader().error();
    if (!unchanged || !parser.error().empty() || parser.count() != nb_spec ||
        parser.type() != check.type_seq || !(parser.reader().stamp() == check.stamp))
        return changed_message(path);
    return "";
}

void unload()
{
    libere_memoire();
    nb_spec = nb_nuc_tot = lenseq_tot = 0;
}

} // namespace

AliCheck check_ali(const std::string& path)
{
    AliCheck check;
    AliParser parser(path);
    check.opened = parser.reader().opened();
    if (!check.opened) {
        check.error = parser.reader().error();
        return check;
    }
    check.stamp = parser.reader().stamp();
    std::size_t longest_row = 0; // what the rows have to hold: the lines with what follows a carriage return
    if (parser.read_headers()) {
        Species species;
        while (parser.next(species)) {
            check.nb_nuc_tot = std::max(check.nb_nuc_tot, species.columns);
            longest_row = std::max(longest_row, species.text.size());
        }
    }
    check.error = parser.error();
    check.recoded = parser.recoded();
    check.nb_spec = parser.count();
    check.type_seq = parser.type();
    check.molecule = parser.molecule();
    check.domaine = parser.domaine();
    if (check.error.empty()) {
        const long needed = static_cast<long>(longest_row) + 1;
        if (needed > seq_capacity / check.nb_spec)
            check.error = text_format("There are too many characters, %ld (MAX = %ld)",
                                      needed * check.nb_spec, seq_capacity);
    }
    return check;
}

std::string load_ali(const std::string& path, const AliCheck& check)
{
    std::string error = allocate_for(check);
    if (error.empty()) error = load_rows(path, check);
    if (!error.empty()) {
        unload();
        return error;
    }
    copy_field(molecule, check.molecule);
    copy_field(domaine, check.domaine);
    type_seq = check.type_seq;
    set_caractere();
    mark_saved();
    return "";
}

// ---- line by line -----------------------------------------------------------------------------------------

namespace {

int fail_in_buffer(const std::string& message)
{
    copy_field({buffer, buffer_size}, message);
    return -1;
}

// Reads up to the line feed: what fits the work buffer is kept. False at the end of the file.
bool read_raw_line(std::FILE* file, std::size_t& length, bool& complete, bool& has_nul)
{
    length = 0;
    complete = has_nul = false;
    int c = 0;
    while (!complete && (c = std::getc(file)) != EOF) {
        if (c == 0) has_nul = true;
        if (c == '\n')
            complete = true;
        else if (length++ < longest_line)
            buffer[length - 1] = static_cast<char>(c);
    }
    if (length > longest_line) complete = false;
    buffer[std::min<std::size_t>(length, longest_line)] = 0;
    return complete || length > 0;
}

} // namespace

int read_line(std::FILE* file, int want_sequence, int* line_no)
{
    std::size_t length = 0;
    bool complete = false, has_nul = false;
    do {
        if (!read_raw_line(file, length, complete, has_nul)) return -2;
        ++*line_no;
    } while (buffer[0] == '#');
    if (!complete) return fail_in_buffer(too_long_message(*line_no, longest_line + 2));
    if (!want_sequence && buffer[0] != '>') return fail_in_buffer(not_an_identifier_message(*line_no));
    if (has_nul) return fail_in_buffer(nul_message(*line_no));
    buffer[std::strcspn(buffer, "\r")] = 0;
    return 0;
}

int interp_seq(int line_no, int* recoded)
{
    std::transform(buffer, buffer + std::strlen(buffer), buffer, upper);
    const std::string_view text = buffer;
    nb_nuc_tot = std::max(nb_nuc_tot, static_cast<int>(text.size()));
    if (nb_spec == 0) type_seq = is_protein(text) ? 1 : 0;
    const std::string_view alphabet = type_seq ? alphabet_prot : alphabet_arn;
    for (std::size_t i = 0; i < text.size(); i++) {
        if (type_seq && (text[i] == 'B' || text[i] == 'Z')) {
            buffer[i] = 'X';
            if (recoded) ++*recoded;
        }
        if (alphabet.find(text[i]) == std::string_view::npos)
            return fail_in_buffer(outside_message(text[i], type_seq, line_no));
    }
    return 0;
}

} // namespace kq

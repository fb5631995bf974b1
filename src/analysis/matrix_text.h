// kernel: the numbers of a distance matrix as text.
#pragma once

#include <span>
#include <string>

namespace kq {

// Appends each value in a field of 10 characters, exactly as printf writes it: "%10.0f" above 1000, "%10.4f"
// above 100, "%10.5f" above 10, else "%10.6f". A value that does not fit takes more characters.
//
// A float has 24 significant bits, and 10^6 is 2^6 * 15625: their product has at most 38 bits and is exact in
// a double. Rounding it to an integer, half to even, is then what printf rounds the decimal expansion to.
void append_numbers(std::string& text, std::span<const float> values);

// A distance in at most five characters, as long as it is below 100000: "%5.3f" below 1, "%5.2f" below 10,
// "%5.1f" below 100, "%5.0f" from there on.
std::string short_number(double value);

} // namespace kq

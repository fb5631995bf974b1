// screen: archiving the selection as a species list.
#pragma once

#include "taxonomy/tree_draw.h"

#include <string>
#include <string_view>

namespace kq {

// A list is called by its file's name without ".lis", at most this long.
inline constexpr int max_list_name = 95;

// Why a list cannot have this name; empty when it can.
std::string_view list_name_fault(std::string_view name);
std::string list_path(std::string_view name);

// Asks for a name, an author and a title and writes the selected species by rank; how the tree screen is to
// be drawn again.
TreeRedraw sauvegarde_file_LIS();

} // namespace kq

// screen: choosing a species list to load; renaming and deleting lists.
#pragma once

#include "screen/bindings.h"
#include "taxonomy/filename_list.h"
#include "taxonomy/lis_file.h"
#include "taxonomy/tree_draw.h"

#include <string>
#include <vector>

namespace kq {

// The lists of dir_DATA, names with extension, while the chooser is up; empty otherwise.
extern std::vector<std::string> file_LIS;
extern int nb_file_LIS;

// Runs the chooser; how the tree screen is to be drawn again.
TreeRedraw choice_file_LIS();

// Shows what list `index` of file_LIS says of itself and loads, renames or deletes it: 1 when it was loaded,
// else -1.
inline constexpr int list_loaded = 1;
int confirme_charger_file_LIS(int index);

// The selection becomes the list's species; tells which are listed twice and how many are not there.
void charge_file_LIS(const LisFile& list, bool without_accession);

// Asks for another name of list `index` and gives it that; never the name of an existing file.
void rename_file_LIS(int index);

// One run of the chooser. The actions of the keys get the key.
class ListChooser {
public:
    ListChooser();
    ~ListChooser();
    ListChooser(const ListChooser&) = delete;
    ListChooser& operator=(const ListChooser&) = delete;
    TreeRedraw run();

    void move(int key);
    void choose(int key);
    void leave(int key);

private:
    void read_names();
    void affich_screen() const;
    void affich_hidden_part() const;

    FilenameList view_;
    bool closed_ = false;
};

using ListAction = void (ListChooser::*)(int key);
extern const KeyTable<ListAction> list_keys; // app/list_keys.cpp

} // namespace kq

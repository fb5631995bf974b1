// screen: the box with what is known about a species.
#pragma once

namespace kq {

// Shows the species' group and its record in the information file. F8 moves it to the group that the record's
// classification names; `group` is the group shown, or what stands for it, as in change_groupe. 1 = its group
// was changed, else 0.
int affich_info(int species, int group);

} // namespace kq

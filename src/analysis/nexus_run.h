// screen: the NEXUS file of the ensembles, and PAUP, which reads it.
#pragma once

#include <string>
#include <vector>

namespace kq {

// Writes the species of all ensembles, at all positions that these show, into a NEXUS file in the working
// directory and starts PAUP on it in the background, then nimbrask on the tree that PAUP writes.
void write_nexus();

// The command that does so for a file "NAME.nex"; `paup` is the program. No name is part of a shell's text.
std::vector<std::string> paup_command(const std::string& paup, const std::string& nexus_file);

} // namespace kq

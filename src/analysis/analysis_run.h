// screen: the automatic analysis of the ensembles.
#pragma once

namespace kq {

// Asks for the parameters and analyses the species of all ensembles at one of three levels: distances, each
// with its neighbour-joining tree, and files for other programs, all written into the working directory.
// What cannot be done is said in a warning before anything is written, where that can be known. ESCAPE ends
// the run; files that are complete stay.
void tout_auto();

} // namespace kq

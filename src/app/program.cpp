// screen: start-up and the outer loop over alignments.
#include "app/program.h"

#include "app/sudden_end.h"
#include "core/ali_screen.h"
#include "core/ali_writer.h"
#include "core/chooser.h"
#include "core/consensus.h"
#include "core/edit.h"
#include "core/families.h"
#include "core/lifecycle.h"
#include "core/options.h"
#include "core/store.h"
#include "core/work_buffer.h"
#include "editor/colour_scale.h"
#include "editor/editor.h"
#include "editor/options_file.h"
#include "editor/view.h"
#include "screen/dialogs.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/process_end.h"
#include "screen/window.h"
#include "taxonomy/ensembles.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_files.h"
#include "taxonomy/frame_layout.h"
#include "taxonomy/group_file_screen.h"
#include "taxonomy/selection.h"

namespace kq {

namespace {

void start_up()
{
    if (!allocate_buffer() || !store_allocate()) erreur_fatale("Insufficient available memory");
    init_dir();
    read_config_pyx();
    open_window(program_title);
    build_color_scale();
    if (compte_nb_file(dir_SEQ, ".ali") == 0) {
        affich_avert("There is no file for this program", 10);
        end_program(1);
    }
    alignment_reset();
    read_config_affiche();
    read_FRA_NOM_COL();
    kq_mode = 0;
    set_rescue(rescue_ali);
    rescue_on_sudden_end();
}

void forget_alignment()
{
    reset_ensembles();
    opt_evalue = 0;
    nb_family = 0;
    free_frame(proot); // one that a test has left behind
}

// From the choice of an alignment to its release.
void one_alignment()
{
    forget_alignment();
    choice_File();
    identify_family();
    read_frame();
    adjust_frame();
    read_file_NOM();
    clear_selection();
    if (construct_ensemble(0) == 0) {
        compute_consensus(0);
        gere_seq();
    }
    libere_memoire();
    free_frame(proot);
}

} // namespace

void run_program()
{
    start_up();
    for (;;)
        one_alignment();
}

} // namespace kq

// model: releasing an alignment, whole.
#include "core/lifecycle.h"

#include "core/columns.h"
#include "core/consensus.h"
#include "core/merging.h"
#include "core/options.h"
#include "core/store.h"

namespace kq {

void libere_memoire()
{
    store_release();
    columns_release();
    consensus_release();
    mergeable_reset();
}

void alignment_reset()
{
    libere_memoire();
    store_reset();
    counts_forget();
    options_reset();
}

} // namespace kq

// The fonts, found before a process is copied, so that the copies need not look for them.
#pragma once

namespace simulator::rendering {

// Pango looks for a face, and for others that have what it lacks, in threads of its own, and nobody
// waits for the second search. A process that is copied while one goes on has locks that stay shut,
// so this returns when they are over; the caller starts none meanwhile.
void findFonts();

}  // namespace simulator::rendering

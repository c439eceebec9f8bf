#pragma once

/// Functions of the running process.

namespace tallyfin {

/// Disables core dumps, and access by other programs of the user, because the memory may hold a Social Security number.
/// Does nothing in a debug build.
void hideMemory();

/// Opens /dev/null for each standard stream that is closed, so that no other file gets its descriptor. Returns false
/// where input or output was closed.
bool fillStandardStreams();

/// Catches SIGTERM, SIGINT and SIGHUP, unless they are ignored.
void awaitEndings();
/// A descriptor that becomes readable when one of them arrives.
int endingDescriptor();
/// The signal that arrived; 0 for none.
int endingSignal();
/// Ends the process by the signal that arrived, so that the parent process sees it. Call it after all cleanup.
[[noreturn]] void endBySignal();

}  // namespace tallyfin

#pragma once

/// What a program asks of the process that it runs in.

namespace tallyfin {

/// Keeps what is in memory, such as a Social Security number, out of core dumps and away from other programs of the
/// user; not in a debug build, whose makers want them.
void hideMemory();

/// Gives each of the three standard streams that is closed a file to nothing, so that no other file takes its number.
/// False where input or output was closed.
bool fillStandardStreams();

/// From now on SIGTERM, SIGINT and SIGHUP don't end the process by themselves; one that was ignored stays so.
void awaitEndings();
/// Becomes readable when one of them comes.
int endingDescriptor();
/// The one that came; 0 where none has.
int endingSignal();
/// Ends the process by the signal that came, once all has been put in order: whoever started it sees why it ended.
[[noreturn]] void endBySignal();

}  // namespace tallyfin

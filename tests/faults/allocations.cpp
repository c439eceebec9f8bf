#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>

/// Preloaded into a program, it makes allocations fail: FAILING_ALLOCATION=7 the seventh, FAILING_ALLOCATION=7+ all
/// from the seventh on. Counting starts when the program's libraries are loaded, so that allocations of static objects
/// count and those of the loader don't.

namespace {

std::atomic<long> count = 0;
long first = 0;  ///< None before the count begins.
bool onwards = false;

bool fails() {
  if (first == 0) return false;
  const long number = ++count;
  const bool failing = onwards ? number >= first : number == first;
  if (failing) errno = ENOMEM;
  return failing;
}

// The C library's own, by the names under which it offers them to replacements.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t number, std::size_t size);
extern "C" void* __libc_realloc(void* place, std::size_t size);
extern "C" void* __libc_memalign(std::size_t alignment, std::size_t size);

[[gnu::constructor]] void begin() {
  const char* const wanted = std::getenv("FAILING_ALLOCATION");
  if (wanted == nullptr) return;
  onwards = std::strchr(wanted, '+') != nullptr;
  first = std::atol(wanted);
}

}  // namespace

extern "C" {

[[gnu::visibility("default")]] void* malloc(std::size_t size) { return fails() ? nullptr : __libc_malloc(size); }
[[gnu::visibility("default")]] void* calloc(std::size_t number, std::size_t size) {
  return fails() ? nullptr : __libc_calloc(number, size);
}
[[gnu::visibility("default")]] void* realloc(void* place, std::size_t size) {
  return fails() ? nullptr : __libc_realloc(place, size);
}
[[gnu::visibility("default")]] void* memalign(std::size_t alignment, std::size_t size) {
  return fails() ? nullptr : __libc_memalign(alignment, size);
}
[[gnu::visibility("default")]] void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return fails() ? nullptr : __libc_memalign(alignment, size);
}
[[gnu::visibility("default")]] int posix_memalign(void** place, std::size_t alignment, std::size_t size) {
  if (fails()) return ENOMEM;
  *place = __libc_memalign(alignment, size);
  return *place == nullptr ? ENOMEM : 0;
}

}  // extern "C"

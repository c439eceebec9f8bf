#include "allocations.h"

#include <malloc.h>

#include <cstdlib>
#include <new>

namespace {
std::uint64_t count = 0;
}

void* operator new(std::size_t size) {
  ++count;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc{};
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace tallyfin::bench {

std::uint64_t allocations() { return count; }

std::uint64_t bytesInUse() { return ::mallinfo2().uordblks; }

}  // namespace tallyfin::bench

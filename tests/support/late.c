/* Preloaded by tests/elsewhere: the project's programs begin a second and a half after they were started. */
#include <string.h>
#include <time.h>
#include <unistd.h>

__attribute__((constructor)) static void begin_late(void) {
  char path[4096];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
  if (length <= 0) return;
  path[length] = '\0';
  const char* name = strrchr(path, '/');
  if (name == NULL || strncmp(name + 1, "tallyfin99", 10) != 0) return;
  struct timespec left = {1, 500000000};
  while (nanosleep(&left, &left) != 0) {
  }
}

// Prints the default of "power", in a process in which the C library does not say where the platform library
// is: which of its functions fails is in the environment. The answer is asked for while the library is
// loaded.

#include <cstdio>
#include <cstdlib>
#include <string>

#include <dlfcn.h>
#include <mwp/MWPLibConfigs.h>

namespace {

bool Fails(const char* function) {
  const char* const failing = std::getenv("PLATFORM_FAILING");
  return failing != nullptr && std::string(failing) == function;
}

template <typename Function>
Function Original(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

// These take the place of the C library's functions for the whole process.
extern "C" {

__attribute__((visibility("default"))) int dladdr(const void* address, Dl_info* info) noexcept {
  if (Fails("dladdr")) {
    return 0;
  }
  const int found = Original<int (*)(const void*, Dl_info*)>("dladdr")(address, info);
  if (Fails("name")) {
    info->dli_fname = nullptr;
  }
  return found;
}

__attribute__((visibility("default"))) char* realpath(const char* path, char* resolved) noexcept {
  return Fails("realpath") ? nullptr : Original<char* (*)(const char*, char*)>("realpath")(path, resolved);
}
}

int main() { std::printf("%d\n", GetLibConfigs()->GetInt("/setting/default_bluetooth_power")); }

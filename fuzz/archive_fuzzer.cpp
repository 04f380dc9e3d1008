// An archive of any content: a member comes out as a private file of bounded size, or nothing does.
#include <sys/stat.h>
#include <unistd.h>
#include <vexapkg/package_core.h>

#include <cstdint>
#include <numeric>

#include "fuzz.h"

extern "C" std::size_t LLVMFuzzerMutate(char* data, std::size_t size, std::size_t maxSize);

/// Corrects the checksums of the tar headers, without which a mutated one never gets far.
extern "C" std::size_t LLVMFuzzerCustomMutator(char* data, std::size_t size, std::size_t maxSize,
                                               unsigned) {
  size = LLVMFuzzerMutate(data, size, maxSize);
  for (char* header = data; header + 512 <= data + size; header += 512) {
    if (std::memcmp(header + 257, "ustar", 5) != 0) continue;
    std::memset(header + 148, ' ', 8);
    const auto* bytes = reinterpret_cast<std::uint8_t*>(header);
    std::snprintf(header + 148, 7, "%06o", std::accumulate(bytes, bytes + 512, 0U));
  }
  return size;
}

void Check(const std::string& input) {
  std::ofstream("/tmp/fuzz.vpk") << input;
  mkdir("/tmp/out", 0700);
  auto& service = VEXAPackageCore::Modules::getPackageVpkService();
  struct stat file;
  if (service.ExtractFile("/tmp/fuzz.vpk", "/tmp/out", "INFO") == 0) {
    Expect(lstat("/tmp/out/INFO", &file) == 0 && file.st_mode == (S_IFREG | 0600) &&
               file.st_size <= 16 * 1024 * 1024,
           "success leaves a private regular file of bounded size");
    unlink("/tmp/out/INFO");
  }
  Expect(rmdir("/tmp/out") == 0, "nothing else is left behind");
}

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vexacore/file.h>
#include <vexacore/vexacore.h>

#include <boost/scope_exit.hpp>
#include <cerrno>

#include "error.h"

namespace {

template <typename Call>
auto RetryOnInterrupt(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

int WriteAll(int fd, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written =
        RetryOnInterrupt([&] { return write(fd, content.data(), content.size()); });
    if (written == -1) return errno;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

}  // namespace

int VLIBCFileTouch(const char* path) {
  if (utimensat(AT_FDCWD, path, nullptr, 0) == 0) return 0;
  if (errno != ENOENT) return VexaRecordError(errno, __FILE__, __LINE__);
  const int fd = open(path, O_WRONLY | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0644);
  if (fd == -1) return VexaRecordError(errno, __FILE__, __LINE__);
  close(fd);
  return 0;
}

int VexaOpenRegularFile(const std::string& path, int& fd, std::int64_t& size) {
  fd = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (fd == -1) return errno;
  struct stat info;
  int error = fstat(fd, &info) == 0 ? 0 : errno;
  if (error == 0 && !S_ISREG(info.st_mode)) error = EINVAL;
  if (error == 0)
    size = info.st_size;
  else
    close(fd);
  return error;
}

int VexaReadFile(const std::string& path, std::size_t maxBytes, std::string& content) {
  int fd;
  std::int64_t fileSize;
  if (const int error = VexaOpenRegularFile(path, fd, fileSize)) return error;
  BOOST_SCOPE_EXIT_ALL(fd) { close(fd); };
  if (fileSize > static_cast<std::int64_t>(maxBytes)) return EFBIG;
  const auto size = static_cast<std::size_t>(fileSize);
  content.resize(size);
  std::size_t done = 0;
  while (done < size) {
    const ssize_t got =
        RetryOnInterrupt([&] { return read(fd, content.data() + done, size - done); });
    if (got == -1) return errno;
    if (got == 0) return EIO;  // it has shrunk
    done += static_cast<std::size_t>(got);
  }
  return 0;
}

int VexaWriteNewFile(const std::string& path, unsigned mode, std::string_view content) {
  const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
  if (fd == -1) return errno;
  int error = WriteAll(fd, content);
  if (close(fd) == -1 && error == 0) error = errno;
  if (error != 0) unlink(path.c_str());
  return error;
}

int VexaReplaceFile(const std::string& path, const std::string& temporaryPath,
                    std::string_view content) {
  int error = VexaWriteNewFile(temporaryPath, 0644, content);
  if (error == EEXIST && unlink(temporaryPath.c_str()) == 0)
    error = VexaWriteNewFile(temporaryPath, 0644, content);
  if (error == 0 && rename(temporaryPath.c_str(), path.c_str()) == -1) {
    error = errno;
    unlink(temporaryPath.c_str());
  }
  return error;
}

int VexaMakeDirectories(const std::string& path) {
  if (mkdir(path.c_str(), 0755) == 0 || errno == EEXIST) return 0;
  const int error = errno;
  const auto slash = path.rfind('/');
  if (error != ENOENT || slash == std::string::npos) return error;
  if (const int above = VexaMakeDirectories(path.substr(0, slash))) return above;
  return mkdir(path.c_str(), 0755) == 0 || errno == EEXIST ? 0 : errno;
}

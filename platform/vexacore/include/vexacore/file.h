#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// For the other libraries of the platform. No call blocks on a FIFO or device, logs or records an
/// error; each returns 0 or an errno value, and throws std::bad_alloc only.

/// Opens a regular file for reading, following links, and tells its size. The caller closes `fd`,
/// unless the call failed: EINVAL when it is no regular file.
int VexaOpenRegularFile(const std::string& path, int& fd, std::int64_t& size);

/// Reads a regular file whole into `content`, following links. EFBIG when it is longer than
/// `maxBytes`, EINVAL when it is no regular file, EIO when it shrinks meanwhile; `content` is then
/// unspecified.
int VexaReadFile(const std::string& path, std::size_t maxBytes, std::string& content);

/// Makes a new file of `mode` (less the umask) that holds `content`; EEXIST when there is anything,
/// a dangling link included, at `path`. After another failure the file is gone.
int VexaWriteNewFile(const std::string& path, unsigned mode, std::string_view content);

/// Makes `path` hold `content` with mode 0644 (less the umask): written to `temporaryPath`, which
/// must be on the same filesystem and is replaced if a killed run left it, then renamed. `path`
/// never holds a part of the content, and after a failure the temporary file is gone.
int VexaReplaceFile(const std::string& path, const std::string& temporaryPath,
                    std::string_view content);

/// Makes the directory `path` with mode 0755 (less the umask), and those above it that are missing.
/// 0 also when there is something at `path` already, a directory or not.
int VexaMakeDirectories(const std::string& path);

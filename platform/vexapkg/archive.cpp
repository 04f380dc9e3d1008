#include <archive.h>
#include <archive_entry.h>
#include <unistd.h>
#include <vexacore/file.h>
#include <vexapkg/package_core.h>

#include <algorithm>
#include <array>
#include <boost/scope_exit.hpp>
#include <cerrno>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "member_limit.h"

namespace VEXAPackageCore {
namespace {

using ArchiveReader = std::unique_ptr<archive, decltype(&archive_read_free)>;
using ArchiveEntry = std::unique_ptr<archive_entry, decltype(&archive_entry_free)>;

/// The archive file under libarchive's reader. A block holds a header and, beside it, a small
/// member; what is in between is skipped by moving `offset`, at no cost.
struct ArchiveFile {
  int fd;
  std::int64_t size;
  std::int64_t offset = 0;
  std::array<char, 4096> block;
};

la_ssize_t ReadBlock(archive* reader, void* data, const void** buffer) {
  auto& file = *static_cast<ArchiveFile*>(data);
  ssize_t got;
  do got = pread(file.fd, file.block.data(), file.block.size(), file.offset);
  while (got == -1 && errno == EINTR);
  if (got == -1) {
    archive_set_error(reader, errno, "read");
    return ARCHIVE_FATAL;
  }
  file.offset += got;
  *buffer = file.block.data();
  return got;
}

la_int64_t SkipForward(archive*, void* data, la_int64_t request) {
  auto& file = *static_cast<ArchiveFile*>(data);
  // A file that grows can have been read beyond the size that it had when it was opened.
  const auto left = std::max<la_int64_t>(file.size - file.offset, 0);
  const auto skipped = std::min(request, left);
  file.offset += skipped;
  return skipped;
}

/// False when the file can't be read, is not a regular file or is no tar archive.
bool OpenTar(archive* reader, ArchiveFile& file) {
  return archive_read_support_format_tar(reader) == ARCHIVE_OK &&
         archive_read_set_read_callback(reader, ReadBlock) == ARCHIVE_OK &&
         archive_read_set_skip_callback(reader, SkipForward) == ARCHIVE_OK &&
         archive_read_set_callback_data(reader, &file) == ARCHIVE_OK &&
         archive_read_open1(reader) == ARCHIVE_OK;
}

/// ARCHIVE_WARN is a member whose name the locale can't show; it is a member all the same.
bool HasMember(int result) { return result == ARCHIVE_OK || result == ARCHIVE_WARN; }

/// Reads on to the first member of that name; false when there is none.
bool FindMember(archive* reader, archive_entry* entry, std::string_view member) {
  while (HasMember(archive_read_next_header2(reader, entry))) {
    const char* path = archive_entry_pathname(entry);
    std::string_view name = path != nullptr ? path : "";
    if (name.starts_with("./")) name.remove_prefix(2);
    if (name.ends_with('/')) name.remove_suffix(1);  // a directory
    if (name == member) return true;
  }
  return false;
}

bool IsAcceptedFile(archive_entry* entry) {
  return archive_entry_filetype(entry) == AE_IFREG && archive_entry_hardlink(entry) == nullptr &&
         static_cast<std::uint64_t>(archive_entry_size(entry)) <= kMaxMemberBytes;
}

/// Goes by the size in the header: a sparse member may claim that its data lies anywhere.
bool ReadMember(archive* reader, archive_entry* entry, std::string& content) {
  content.resize(static_cast<std::size_t>(archive_entry_size(entry)));
  return archive_read_data(reader, content.data(), content.size()) >= 0;
}

bool ExtractMember(const std::string& archivePath, const std::string& destDir,
                   const std::string& member) {
  if (member.find('/') != std::string::npos) return false;
  ArchiveFile file;
  if (VexaOpenRegularFile(archivePath, file.fd, file.size) != 0) return false;
  BOOST_SCOPE_EXIT_ALL(&file) { close(file.fd); };
  const ArchiveReader reader(archive_read_new(), archive_read_free);
  // Not left to the reader, which goes on without one when memory is missing.
  const ArchiveEntry entry(archive_entry_new2(reader.get()), archive_entry_free);
  if (!reader || !entry) throw std::bad_alloc();
  const bool opened = OpenTar(reader.get(), file);
  std::string content;
  const bool found = opened && FindMember(reader.get(), entry.get(), member) &&
                     IsAcceptedFile(entry.get()) && ReadMember(reader.get(), entry.get(), content);
  // That an archive has no such member must not be concluded from a lack of memory. Opening tells
  // of every other failure.
  const int error = archive_errno(reader.get());
  if (!found && (error == ENOMEM || (!opened && error == 0))) throw std::bad_alloc();
  return found && VexaWriteNewFile(destDir + "/" + member, 0600, content) == 0;
}

}  // namespace

ConfigurationService::~ConfigurationService() = default;
ConfigurationServiceImpl::ConfigurationServiceImpl() = default;
ConfigurationServiceImpl::~ConfigurationServiceImpl() = default;
PackageSettingService::~PackageSettingService() = default;
PackageSettingServiceImpl::PackageSettingServiceImpl(ConfigurationService&) {}
PackageSettingServiceImpl::~PackageSettingServiceImpl() = default;
PackageVpkServiceImpl::PackageVpkServiceImpl(PackageSettingService&) {}
PackageVpkServiceImpl::~PackageVpkServiceImpl() = default;

int PackageVpkServiceImpl::ExtractFile(const std::string& archivePath, const std::string& destDir,
                                       const std::string& member) {
  return ExtractMember(archivePath, destDir, member) ? 0 : -1;
}

}  // namespace VEXAPackageCore

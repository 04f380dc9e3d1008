#pragma once

#include <string>

/// Access to single members of package archives. A caller arms a scope-exit guard that calls
/// RemoveTempDir on its still empty directory string, then calls CreateTempDir and extracts.

/// Makes a new directory of mode 0700 named /tmp/vexapkg_ and six characters, and sets `dir` to it.
/// On failure logs the reason and returns false, with `dir` as it was.
bool CreateTempDir(std::string& dir);

/// Extracts the member `fileName` of the archive into `destDir` under the same name. On failure
/// returns false and logs it, unless `quiet`. Throws what the platform's archive services throw.
bool ExtractPackageFile(const std::string& archivePath, const std::string& fileName,
                        const std::string& destDir, bool quiet);

/// Removes `dir` with all that is in it by running rm; an empty `dir` removes nothing. Reports
/// nothing and throws nothing.
void RemoveTempDir(const std::string& dir);

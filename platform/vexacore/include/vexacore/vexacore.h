#pragma once

/// Runs `program` with the arguments up to the first null pointer and waits for it to end. The path
/// is not repeated as an argument. The program gets the caller's environment and /dev/null as
/// standard input, output and error.
/// Returns 0 when it exited with status 0, a negative value for everything else; then VLIBCErrGet
/// and its companions tell what happened.
int VLIBCExec(const char* program, const char* arg1, const char* arg2, const char* arg3,
              const char* arg4);

/// Creates `path` as an empty file of mode 0644 (less the umask), or sets the times of what is
/// there, of any file type, to now; never blocks on it.
/// Returns 0, or a negative value with the reason in VLIBCErrGet.
int VLIBCFileTouch(const char* path);

/// The code of the last failure in this library: an errno value, or for a program that ran,
/// 0x100 + its exit status or 0x200 + the number of the signal that ended it. 0 before any failure.
int VLIBCErrGet();

/// The source file that recorded the last failure; never null.
const char* VLIBCErrorGetFile();

/// The source line that recorded the last failure.
int VLIBCErrorGetLine();

#pragma once

/// For the other libraries of the platform: runs `program` with the null-terminated vector `argv`
/// (which starts with the program's own name), in the manner and with the result of VLIBCExec.
int VexaSpawnAndWait(const char* program, const char* const* argv);

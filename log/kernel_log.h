#pragma once

/// Formats a message in the manner of printf ("%m" included) and appends it, as one record
/// "vexa-pkg-generator: " + message, to the kernel log through a shell. Formatted text beyond 511
/// bytes, or from a conversion that fails, is cut off. Returns after the shell has ended; failures
/// lose the message silently. `format` must be a constant. Throws std::bad_alloc, and what
/// VLIBCExec throws.
void WriteKernelLog(const char* format, ...) __attribute__((format(printf, 1, 2)));

#pragma once

/// Records `code` with the place that met it, for VLIBCErrGet and its companions; returns -1.
int VexaRecordError(int code, const char* file, int line);

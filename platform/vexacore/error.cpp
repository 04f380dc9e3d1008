#include "error.h"

#include <vexacore/vexacore.h>

namespace {

struct {
  int code = 0;
  const char* file = "";
  int line = 0;
} lastError;

}  // namespace

int VexaRecordError(int code, const char* file, int line) {
  lastError = {code, file, line};
  return -1;
}

int VLIBCErrGet() { return lastError.code; }
const char* VLIBCErrorGetFile() { return lastError.file; }
int VLIBCErrorGetLine() { return lastError.line; }

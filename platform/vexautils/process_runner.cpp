#include <vexacore/spawn.h>
#include <vexautils/process_runner.h>

namespace VEXAUtils {

ProcessRunner::ProcessRunner(const char* program, const char* arg0, const char* arg1,
                             const char* arg2, const char* arg3, const char* arg4, const char* arg5,
                             const char* arg6, const char* arg7, const char* arg8)
    : program_(program), argv_{arg0, arg1, arg2, arg3, arg4, arg5, arg6, arg7, arg8, nullptr} {}

ProcessRunner::~ProcessRunner() = default;

int ProcessRunner::run(bool, bool) { return VexaSpawnAndWait(program_, argv_.data()); }

}  // namespace VEXAUtils

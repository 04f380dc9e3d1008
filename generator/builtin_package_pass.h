#pragma once

/// Turns the archives of the upgrade directory into the two install services and the startup units,
/// and then sets the completion flag. Does nothing, and logs nothing, when that flag is present or
/// there is no upgrade directory. Logs its progress; what goes wrong with one package or unit is
/// logged by the stage that met it and stops nothing else. Throws what a status query, the scan of
/// the upgrade directory or a platform call throws; the completion flag is then not set.
void ProcessBuiltinPackages();

== A boot without an upgrade has no unit, no flag, no call and no line of the generator.
file /after-boot
| systemctl list-units --all --plain --no-legend 'pkg-install-*' 'pkgctl-*'
| find /run/systemd/system /run -mindepth 1 -maxdepth 1 -path '*/systemd/system/*' -o -name '.vexapkg*' -o -name calls
--
show default.target ActiveState=active ; show pkg-install-high-priority-builtin.service,pkg-install-low-priority-builtin.service LoadState=not-found

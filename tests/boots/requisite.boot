== Alpha, of high priority, needs a unit that is not active: no package of that priority is installed, and all others are.
vpk Alpha.vpk Alpha - example-idle.service ; vpk Gamma.vpk Gamma system ; policy {"Alpha": {"priority": "high"}}
file /etc/systemd/system/example-idle.service [Service]\nType=oneshot\nRemainAfterExit=yes\nExecStart=/bin/true\n
--
log | pass: *
call vexapkg install --daemon-reload 0 --job-name install_low_builtin_pkgs /.VexaUpgradePackages/Gamma.vpk ; call vexapkgctl enable Gamma ; call vexapkgctl start Gamma
show example-idle.service,pkg-install-high-priority-builtin.service,pkgctl-Alpha.service ActiveState=inactive InactiveExitTimestampMonotonic=0
show default.target,pkg-install-low-priority-builtin.service,pkgctl-Gamma.service ActiveState=active
order …Dependency failed for pkg-install-high-priority-builtin.service… ; order …Dependency failed for pkgctl-Alpha.service…

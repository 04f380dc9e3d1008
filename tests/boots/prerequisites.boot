policy {"High": {"priority": "high"}, "Idle": {"enable": false}} ; vpk Idle.vpk Idle system ; vpk Low.vpk Low system

== A prerequisite that is the startup unit of a package of the other priority: this priority waits for the other one.
vpk High.vpk High system pkgctl-Low.service
--
log | pass: *
call vexapkg install --daemon-reload 0 --job-name install_low_builtin_pkgs /.VexaUpgradePackages/Idle.vpk /.VexaUpgradePackages/Low.vpk
call vexapkg install --daemon-reload 0 /.VexaUpgradePackages/High.vpk ; call vexapkgctl enable High ; call vexapkgctl enable Low ; call vexapkgctl start High ; call vexapkgctl start Low
order done vexapkgctl start Low < begin vexapkg install …/High.vpk

== One that is the startup unit of a package that is not enabled: no package of this priority is installed.
vpk High.vpk High system pkgctl-Idle.service
--
log | pass: *
call vexapkg install --daemon-reload 0 --job-name install_low_builtin_pkgs /.VexaUpgradePackages/Idle.vpk /.VexaUpgradePackages/Low.vpk ; call vexapkgctl enable Low ; call vexapkgctl start Low
order …Dependency failed for pkg-install-high-priority-builtin.service…

== One that nobody starts: it stays as it is, no package of this priority is installed, and all others are.
vpk High.vpk High - example-idle.service ; file /etc/systemd/system/example-idle.service [Service]\nType=oneshot\nRemainAfterExit=yes\nExecStart=/bin/true\n
--
log | pass: *
call vexapkg install …_low_builtin_pkgs …/Idle.vpk …/Low.vpk ; call vexapkgctl enable Low ; call vexapkgctl start Low
show example-idle.service,pkg-install-high-priority-builtin.service,pkgctl-High.service ActiveState=inactive InactiveExitTimestampMonotonic=0
show default.target ActiveState=active ; order …Dependency failed for pkg-install-high… ; order …Dependency failed for pkgctl-High…

== The package tool fails for one package of each priority: the services count as done, what follows them is tried, and the boot goes on.
vpk Bad.vpk Bad ; vpk Good.vpk Good ; vpk Poor.vpk Poor system ; vpk Rich.vpk Rich system ; cpus 0-1 ; policy {"Bad": {"priority": "high"}, "Good": {"priority": "high"}}
file /etc/failing-calls \x20vexapkg install\n vexapkgctl enable Poor\n vexapkgctl start Bad\n vexapkgctl start Poor\n
--
log | pass: *
call vexapkgctl enable Bad Good ; call vexapkgctl start Good ; call vexapkgctl start Rich
call failed vexapkg install --daemon-reload 0 --job-name install_low_builtin_pkgs /.VexaUpgradePackages/Poor.vpk /.VexaUpgradePackages/Rich.vpk
call failed vexapkg install --daemon-reload 0 /.VexaUpgradePackages/Bad.vpk /.VexaUpgradePackages/Good.vpk ; call failed vexapkgctl enable Poor Rich ; call failed vexapkgctl start Bad
call failed vexapkgctl start Poor ; state degraded
show default.target ActiveState=active ; show pkg-install-high-priority-builtin.service,pkg-install-low-priority-builtin.service ActiveState=active Result=success
order failed vexapkg install …/Bad.vpk …/Good.vpk < begin vexapkgctl enable Bad Good

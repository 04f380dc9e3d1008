== systemd takes escaped names of prerequisite units for what they are: a device that is not there, a mount and an instance.
vpk Alpha.vpk Alpha - dev-disk-by\x5cx2duuid-0a1b\x5cx2d2c3d.device ; policy {"Alpha": {"priority": "high"}}
vpk Gamma.vpk Gamma system mnt-data\x5cx2dset.mount example\x5cx2ddb@main\x5cx20one.service
file /etc/systemd/system/example\x5cx2ddb@.service [Service]\nType=oneshot\nRemainAfterExit=yes\nExecStart=/bin/sleep 0.2\n
link /etc/systemd/system/default.target.wants/example\x5cx2ddb@main\x5cx20one.service ../example\x5cx2ddb@.service
file /etc/systemd/system/mnt-data\x5cx2dset.mount [Mount]\nWhat=tmpfs\nWhere=/mnt/data-set\nType=tmpfs\n
link /etc/systemd/system/default.target.wants/mnt-data\x5cx2dset.mount ../mnt-data\x5cx2dset.mount
# The journal is to hear what becomes of the device.
file /etc/systemd/system/dev-disk-by\x5cx2duuid-0a1b\x5cx2d2c3d.device.d/after.conf [Unit]\nAfter=systemd-journald.service\n
--
log | pass: *
call vexapkg install --daemon-reload 0 --job-name install_low_builtin_pkgs /.VexaUpgradePackages/Gamma.vpk ; call vexapkgctl enable Gamma ; call vexapkgctl start Gamma
show pkg-install-high-priority-builtin.service Requisite="dev-disk-by\\x5cx2duuid-0a1b\\x5cx2d2c3d.device" InactiveExitTimestampMonotonic=0
show pkg-install-low-priority-builtin.service,pkgctl-Gamma.service ActiveState=active Requisite="example\\x5cx2ddb@main\\x5cx20one.service" "mnt-data\\x5cx2dset.mount"
order mnt-data\x5cx2dset.mount finished < pkg-install-low-priority-builtin.service started ; order example\x5cx2ddb@main\x5cx20one.service finished < pkg-install-low-priority-builtin.service started
order …Dependency failed for pkg-install-high… ; order …Dependency failed for pkgctl-Alpha.service…

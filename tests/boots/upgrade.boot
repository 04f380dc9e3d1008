== A boot after an upgrade: installs of high priority go side by side, each package is started after it is installed and enabled, what has to be there comes first, and the correction is run once.
vpk Alpha.vpk Alpha system example-db.service ; vpk Beta.vpk Beta system ; vpk Delta.vpk Delta system
vpk Gamma.vpk Gamma volume ; member Gamma.vpk conf [Service]\nNice=5\n
policy {"Alpha": {"priority": "high"}, "Beta": {"priority": "high", "enable": false}, "Delta": {"enable": false}}
cpus 0-3 ; file /var/.UpgradeBootup
file /etc/systemd/system/example-db.service [Service]\nType=oneshot\nRemainAfterExit=yes\nExecStart=/bin/sleep 0.2\n
link /etc/systemd/system/default.target.wants/example-db.service ../example-db.service
--
log pass: Alpha.vpk Beta.vpk Delta.vpk Gamma.vpk
call vexapkg install --daemon-reload 0 --job-name install_low_builtin_pkgs /.VexaUpgradePackages/Delta.vpk /.VexaUpgradePackages/Gamma.vpk
call vexapkg install --daemon-reload 0 /.VexaUpgradePackages/Alpha.vpk
call vexapkg install --daemon-reload 0 /.VexaUpgradePackages/Beta.vpk
call vexapkgctl correct-cfg --config-only
call vexapkgctl enable Alpha
call vexapkgctl enable Gamma
call vexapkgctl start Alpha
call vexapkgctl start Gamma
show default.target,pkgctl-Alpha.service ActiveState=active
show pkg-install-high-priority-builtin.service,pkg-install-low-priority-builtin.service ActiveState=active Result=success NeedDaemonReload=no Slice=package_center.slice
show pkgctl-Beta.service,pkgctl-Delta.service LoadState=loaded ActiveState=inactive InactiveExitTimestampMonotonic=0
show pkgctl-Gamma.service ActiveState=active WantedBy=vexa-low-priority-packages.target Nice=5
order example-db.service finished < pkg-install-high-priority-builtin.service started
order vexa-service-tmp.service finished < pkg-install-high-priority-builtin.service started < pkg-install-high-priority-builtin.service finished < pkgctl-Alpha.service started
order pkg-volume.target finished < pkg-install-low-priority-builtin.service started < pkg-install-low-priority-builtin.service finished < pkgctl-Gamma.service started
order vexa-login.target finished < pkg-install-low-priority-builtin.service started
order pkg-install-low-priority-builtin.service finished < pkg-builtin-resource-clearer.service started
order begin vexapkg install …/Beta.vpk < done vexapkg install …/Alpha.vpk < begin vexapkgctl enable Alpha
order begin vexapkg install …/Alpha.vpk < done vexapkg install …/Beta.vpk < begin vexapkgctl enable Alpha

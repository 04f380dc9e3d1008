== After an upgrade installs of high priority go side by side, a package is started when it is installed and enabled, and the correction is run once. One reload more touches nothing of what was made.
vpk Alpha.vpk Alpha system example-db.service ; vpk Beta.vpk Beta system ; vpk Delta.vpk Delta system
vpk Gamma.vpk Gamma volume ; member Gamma.vpk conf [Service]\nNice=5\n ; file /var/.UpgradeBootup ; cpus 0-3
policy {"Alpha": {"priority": "high"}, "Beta": {"priority": "high", "enable": false}, "Delta": {"enable": false}}
file /etc/systemd/system/example-db.service [Service]\nType=oneshot\nRemainAfterExit=yes\nExecStart=/bin/sleep 0.2\n
link /etc/systemd/system/default.target.wants/example-db.service ../example-db.service
file /etc/systemd/system-generators/count-runs #!/bin/bash\necho run >>/run/generator-runs\n ; mode /etc/systemd/system-generators/count-runs 0755
file /after-boot | touch /run/mark | systemctl daemon-reload | find /run/systemd/system /run/.vexapkg_* -newer /run/mark
| echo "the generators ran $(wc -l </run/generator-runs) times"
--
log | pass: * ; output the generators ran 4 times
call vexapkg install --daemon-reload 0 --job-name install_low_builtin_pkgs /.VexaUpgradePackages/Delta.vpk /.VexaUpgradePackages/Gamma.vpk
call vexapkg install --daemon-reload 0 /.VexaUpgradePackages/Alpha.vpk ; call vexapkg install --daemon-reload 0 /.VexaUpgradePackages/Beta.vpk ; call vexapkgctl correct-cfg --config-only
call vexapkgctl enable Alpha ; call vexapkgctl enable Gamma ; call vexapkgctl start Alpha ; call vexapkgctl start Gamma
show default.target,pkgctl-Alpha.service ActiveState=active NeedDaemonReload=no
show pkg-install-high-priority-builtin.service,pkg-install-low-priority-builtin.service ActiveState=active Result=success NeedDaemonReload=no Slice=package_center.slice
show pkgctl-Beta.service,pkgctl-Delta.service LoadState=loaded ActiveState=inactive InactiveExitTimestampMonotonic=0
show pkgctl-Gamma.service ActiveState=active NeedDaemonReload=no WantedBy=vexa-low-priority-packages.target Nice=5
order example-db.service finished < pkg-install-high-priority-builtin.service started ; order …Finished pkgctl-Alpha.service… ; order …Finished pkgctl-Gamma.service…
order vexa-service-tmp.service finished < pkg-install-high-priority-builtin.service started < pkg-install-high-priority-builtin.service finished < pkgctl-Alpha.service started
order pkg-volume.target finished < pkg-install-low-priority-builtin.service started < pkg-install-low-priority-builtin.service finished < pkgctl-Gamma.service started
order vexa-login.target finished < pkg-install-low-priority-builtin.service started < pkg-install-low-priority-builtin.service finished < pkg-builtin-resource-clearer.service started
order begin vexapkg install …/Beta.vpk < done vexapkg install …/Alpha.vpk < begin vexapkgctl enable Alpha ; order …Finished pkg-install-high-priority-builtin.service…
order begin vexapkg install …/Alpha.vpk < done vexapkg install …/Beta.vpk < begin vexapkgctl enable Alpha ; order …Finished pkg-install-low-priority-builtin.service…

# The generator works where systemd 253 and later run it: nothing can be written but /run, /sys, /proc and
# /dev/shm, and /tmp is private.

== After the boot it does its work once more, so confined, and what it made is started.
base upgrade
file /after-boot
| #!/bin/bash
| set -euo pipefail
| systemctl stop 'pkg-install-*' 'pkgctl-*'
| mv /run/systemd/system /run/of-the-boot
| rm /run/.vexapkg_*
| unshare --mount --propagation slave bash -euc '
|   findmnt -rno TARGET | while read -r directory; do
|     [[ $directory/ =~ ^/(sys|run|proc|dev/shm|tmp)/ ]] || mount -o remount,bind,ro "$directory"
|   done
|   mount -t tmpfs tmpfs /tmp
|   for file in /var/x /etc/x /dev/x /.VexaUpgradePackages/x; do
|     if touch $file 2>/dev/null; then echo "$file could be made"; fi
|   done
|   /etc/systemd/system-generators/vexa-pkg-generator normal early late
|   ls -A /tmp'
| diff -r --no-dereference /run/of-the-boot /run/systemd/system
| systemctl daemon-reload
| systemctl start vexa-{high,low}-priority-packages.target
mode /after-boot 0755
--
log pass: Alpha.vpk Beta.vpk Delta.vpk Gamma.vpk
log pass: Alpha.vpk Beta.vpk Delta.vpk Gamma.vpk
call vexapkg install --daemon-reload 0 --job-name install_low_builtin_pkgs /.VexaUpgradePackages/Delta.vpk /.VexaUpgradePackages/Gamma.vpk
call vexapkg install --daemon-reload 0 --job-name install_low_builtin_pkgs /.VexaUpgradePackages/Delta.vpk /.VexaUpgradePackages/Gamma.vpk
call vexapkg install --daemon-reload 0 /.VexaUpgradePackages/Alpha.vpk
call vexapkg install --daemon-reload 0 /.VexaUpgradePackages/Alpha.vpk
call vexapkg install --daemon-reload 0 /.VexaUpgradePackages/Beta.vpk
call vexapkg install --daemon-reload 0 /.VexaUpgradePackages/Beta.vpk
call vexapkgctl correct-cfg --config-only
call vexapkgctl correct-cfg --config-only
call vexapkgctl enable Alpha
call vexapkgctl enable Alpha
call vexapkgctl enable Gamma
call vexapkgctl enable Gamma
call vexapkgctl start Alpha
call vexapkgctl start Alpha
call vexapkgctl start Gamma
call vexapkgctl start Gamma
call vexapkgctl stop Alpha
call vexapkgctl stop Gamma
show pkg-install-high-priority-builtin.service ActiveState=active Result=success NeedDaemonReload=no
show pkg-install-low-priority-builtin.service ActiveState=active Result=success NeedDaemonReload=no
show pkgctl-Alpha.service ActiveState=active WantedBy=vexa-high-priority-packages.target
show pkgctl-Gamma.service ActiveState=active WantedBy=vexa-low-priority-packages.target Nice=5

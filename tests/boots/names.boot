== Archives of both priorities with a name that bash or systemd could misread: the package tool, which fails for an archive that is not there, gets every byte unchanged.
vpk High\x20\x20"d"'s'\x5c\x5c"\x5c'\x20$HOME${HOME}$$\x20$1%n%%\x5c\x20\x5cn\x5cx41;`>owned`$(>owned)&>owned|>owned\x20#*?[a-z]{a,b}~!<$'x'\nx\x01\x1b\x7f\x0d\x09\xff\xc3\x28\xf0ü€.vpk High system
vpk Low\x20\x20"d"'s'\x5c\x5c"\x5c'\x20$HOME${HOME}$$\x20$1%n%%\x5c\x20\x5cn\x5cx41;`>owned`$(>owned)&>owned|>owned\x20#*?[a-z]{a,b}~!<$'x'\nx\x01\x1b\x7f\x0d\x09\xff\xc3\x28\xf0ü€.vpk Low system
policy {"High": {"priority": "high"}, "Low": {"enable": false}} ; cpus 0-3
--
log | pass: *
call vexapkg install --daemon-reload 0 $'/.VexaUpgradePackages/High  …' ; call vexapkg install --daemon-reload 0 --job-name install_low_builtin_pkgs $'/.VexaUpgradePackages/Low  …'
call vexapkgctl enable High ; call vexapkgctl start High
show pkg-install-high-priority-builtin.service,pkg-install-low-priority-builtin.service Result=success

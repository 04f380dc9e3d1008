# Archives with names that bash or systemd could misread: the package tool gets every byte unchanged.

== Two archives for each name, one of high and one of low priority, which have quoting of their own.
vpk 1High\x20"double"\x20'single'\x20\x5c\x5c"\x20\x5c'\x20$HOME\x20${HOME}\x20$$\x20$1\x20%n\x20%i\x20%%\x20%.vpk High1 system
vpk 1Low\x20"double"\x20'single'\x20\x5c\x5c"\x20\x5c'\x20$HOME\x20${HOME}\x20$$\x20$1\x20%n\x20%i\x20%%\x20%.vpk Low1 system
vpk 2High\x5c\x20\x5c\x5cn\x20\x5cx41;touch\x20owned;`touch\x20owned`$(touch\x20owned)&touch\x20owned&|touch\x20owned\x20#.vpk High2 system
vpk 2Low\x5c\x20\x5c\x5cn\x20\x5cx41;touch\x20owned;`touch\x20owned`$(touch\x20owned)&touch\x20owned&|touch\x20owned\x20#.vpk Low2 system
vpk 3High\nExecStartPre=touch\x20owned\ntouch\x20owned;\x01\x02\x1b\x7f\x0d\x09\x20\x20.vpk High3 system
vpk 3Low\nExecStartPre=touch\x20owned\ntouch\x20owned;\x01\x02\x1b\x7f\x0d\x09\x20\x20.vpk Low3 system
vpk 4High\x80\xff\xc3\x28\xed\xa0\x80\xf0\x20ü\x20€*?[a-z]{a,b}~!<>()$'x'.vpk High4 system
vpk 4Low\x80\xff\xc3\x28\xed\xa0\x80\xf0\x20ü\x20€*?[a-z]{a,b}~!<>()$'x'.vpk Low4 system
policy {"High1": {"priority": "high"}, "High2": {"priority": "high", "enable": false}, "High3": {"priority": "high", "enable": false}, "High4": {"priority": "high", "enable": false}}
cpus 0-3
--
log pass:
log Load info, pkg=[1High "double" 'single' \\" \' $HOME ${HOME} $$ $1 %n %i %% %.vpk]
log Load info, pkg=[1Low "double" 'single' \\" \' $HOME ${HOME} $$ $1 %n %i %% %.vpk]
log Load info, pkg=[2High\ \\x5cn \x5cx41;touch owned;`touch owned`$(touch owned)&touch owned&|touch owned #.vpk]
log Load info, pkg=[2Low\ \\x5cn \x5cx41;touch owned;`touch owned`$(touch owned)&touch owned&|touch owned #.vpk]
log Load info, pkg=[3High
log ExecStartPre=touch owned
log touch owned;\x01\x02\x1b\x7f\x0d\x09  .vpk]
log Load info, pkg=[3Low
log ExecStartPre=touch owned
log touch owned;\x01\x02\x1b\x7f\x0d\x09  .vpk]
log Load info, pkg=[4High\x80\xff\xc3(\xed\xa0\x80\xf0 ü €*?[a-z]{a,b}~!<>()$'x'.vpk]
log Load info, pkg=[4Low\x80\xff\xc3(\xed\xa0\x80\xf0 ü €*?[a-z]{a,b}~!<>()$'x'.vpk]
call vexapkg install --daemon-reload 0 $'/.VexaUpgradePackages/3High\x5cnExecStartPre=touch owned\x5cntouch owned;\001\002\E\177\r\t  .vpk'
call vexapkg install --daemon-reload 0 $'/.VexaUpgradePackages/4High\200\377\303(\355\240\200\360 \303\274 \342\202\254*?[a-z]{a,b}~!<>()$\'x\'.vpk'
call vexapkg install --daemon-reload 0 --job-name install_low_builtin_pkgs /.VexaUpgradePackages/1Low\ \"double\"\ \'single\'\ \\\\\"\ \\\'\ \$HOME\ \$\x5c{HOME\}\ \$\$\ \$1\ %n\ %i\ %%\ %.vpk /.VexaUpgradePackages/2Low\\\ \\\\x5cn\ \\x5cx41\;touch\ owned\;\`touch\ owned\`\$\(touch\ owned\)\&touch\ owned\&\|touch\ owned\ #.vpk $'/.VexaUpgradePackages/3Low\x5cnExecStartPre=touch owned\x5cntouch owned;\001\002\E\177\r\t  .vpk' $'/.VexaUpgradePackages/4Low\200\377\303(\355\240\200\360 \303\274 \342\202\254*?[a-z]{a,b}~!<>()$\'x\'.vpk'
call vexapkg install --daemon-reload 0 /.VexaUpgradePackages/1High\ \"double\"\ \'single\'\ \\\\\"\ \\\'\ \$HOME\ \$\x5c{HOME\}\ \$\$\ \$1\ %n\ %i\ %%\ %.vpk
call vexapkg install --daemon-reload 0 /.VexaUpgradePackages/2High\\\ \\\\x5cn\ \\x5cx41\;touch\ owned\;\`touch\ owned\`\$\(touch\ owned\)\&touch\ owned\&\|touch\ owned\ #.vpk
call vexapkgctl enable High1
call vexapkgctl enable Low1 Low2 Low3 Low4
call vexapkgctl start High1
call vexapkgctl start Low1
call vexapkgctl start Low2
call vexapkgctl start Low3
call vexapkgctl start Low4
show pkg-install-high-priority-builtin.service Result=success ExecStartPre=
show pkg-install-low-priority-builtin.service Result=success ExecStartPre=

# The Debian package; scripts/package builds it.
set(CPACK_GENERATOR DEB)
set(CPACK_SET_DESTDIR ON)  # the generator's folder is an absolute path
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# A distribution puts its own address here and in package/changelog.
set(CPACK_DEBIAN_PACKAGE_MAINTAINER
    "vexa-pkg-generator developers <vexa-pkg-generator@example.org>")
# Of the programs that the generator runs, bash and coreutils are essential; vexapkg and vexapkgctl
# belong to the system that it is installed on.
set(CPACK_DEBIAN_PACKAGE_DEPENDS systemd)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"installs and starts builtin packages after a system upgrade
A systemd generator for systems whose upgrade leaves package archives behind.
Early at the next boot it turns the archives into units, so that the same boot
installs the packages and starts them.")
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/finish.cmake")
include(CPack)

# Runs on the installed tree just before it is packed, and adds what Debian asks of a package.
# CPack has set DESTDIR, which file(INSTALL) goes by.
set(doc /usr/share/doc/vexa-pkg-generator)
file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/copyright" DESTINATION ${doc})
file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/changelog" DESTINATION ${doc} RENAME changelog.Debian)
file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/lintian-overrides"
     DESTINATION /usr/share/lintian/overrides RENAME vexa-pkg-generator)
execute_process(
  COMMAND gzip --best --no-name "$ENV{DESTDIR}${doc}/changelog.Debian"
          "$ENV{DESTDIR}/usr/share/man/man8/vexa-pkg-generator.8"
  COMMAND_ERROR_IS_FATAL ANY)

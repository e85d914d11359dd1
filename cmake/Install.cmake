# What `cmake --install` puts where, and the Debian package that `cpack` makes of it.
include(GNUInstallDirs)

install(TARGETS vendaro vendaro-replay)
install(FILES packaging/vendaro.1 packaging/vendaro-replay.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES README.md docs/replay.md docs/image-format.md docs/architecture.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES packaging/vendaro.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/vendaro.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
foreach(size 16 32 48 128)
    install(FILES src/resources/icons/vendaro-${size}.png
        DESTINATION ${icons}/${size}x${size}/apps RENAME vendaro.png)
endforeach()
install(FILES src/resources/svg/vendaro.svg DESTINATION ${icons}/scalable/apps)
install(DIRECTORY ${DEMO_DIR}/ DESTINATION ${CMAKE_INSTALL_DATADIR}/vendaro/demo)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "The Vendaro developers <vendaro@localhost>")
set(CPACK_PACKAGE_DESCRIPTION
"Loads the flash image that a design tool compiled for a serial TFT touch panel, runs the panel's page engine and shows
its screen in a window. vendaro-replay runs the same engine without a window, from a script, to test projects in CI.")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What no library asks for: the players and decoders behind the toolkit's media classes, and a face to write with.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt5multimedia5-plugins, gstreamer1.0-plugins-base, gstreamer1.0-plugins-good,\
 fonts-dejavu-core | fonts-liberation | fonts-freefont-ttf")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "gstreamer1.0-libav, gstreamer1.0-plugins-bad")
include(CPack)

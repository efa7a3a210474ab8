# What `cmake --install` puts where, and the Debian packages. Three parts: the library with the
# command (nucleo), everything that needs Qt (desktop), what host developers need (dev).
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(pacote_cmake ${CMAKE_INSTALL_LIBDIR}/cmake/RelatoriosTarvo)

foreach(componente Nucleo SQLite PDF Desktop C)
    if(TARGET tarvo_instalada_${componente})
        set(parte nucleo)
        set(parte_cmake dev)
        if(componente STREQUAL Desktop)
            # Programs ask for it where it is installed.
            set(parte desktop)
            set(parte_cmake desktop)
        endif()
        install(TARGETS tarvo_instalada_${componente} EXPORT RelatoriosTarvo${componente}
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${parte} NAMELINK_COMPONENT ${parte_cmake}
            FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)
        install(EXPORT RelatoriosTarvo${componente} NAMESPACE RelatoriosTarvo::
            DESTINATION ${pacote_cmake} COMPONENT ${parte_cmake})
    endif()
endforeach()

configure_package_config_file(
    cmake/RelatoriosTarvoConfig.cmake.in ${PROJECT_BINARY_DIR}/RelatoriosTarvoConfig.cmake
    INSTALL_DESTINATION ${pacote_cmake})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/RelatoriosTarvoConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/RelatoriosTarvoConfig.cmake
    ${PROJECT_BINARY_DIR}/RelatoriosTarvoConfigVersion.cmake
    DESTINATION ${pacote_cmake} COMPONENT dev)
file(RELATIVE_PATH raiz /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/relatoriostarvo.pc.in ${PROJECT_BINARY_DIR}/relatoriostarvo.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/relatoriostarvo.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

install(TARGETS relatorios-tarvo RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT nucleo)
# The library looks for it here.
install(TARGETS relatorios-tarvo-mdb
    RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/relatoriostarvo COMPONENT nucleo)
find_program(GZIP gzip REQUIRED)
add_custom_command(OUTPUT relatorios-tarvo.1.gz
    COMMAND ${GZIP} -9nc ${PROJECT_SOURCE_DIR}/docs/relatorios-tarvo.1 > relatorios-tarvo.1.gz
    DEPENDS docs/relatorios-tarvo.1
    VERBATIM)
add_custom_target(manual ALL DEPENDS relatorios-tarvo.1.gz)
install(FILES ${PROJECT_BINARY_DIR}/relatorios-tarvo.1.gz
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT nucleo)
# Something to try the command on.
add_custom_command(OUTPUT exemplo.tarvo
    COMMAND ${CMAKE_COMMAND} -E rm -f exemplo.tarvo
    COMMAND relatorios-tarvo criar exemplo.tarvo --exemplo
    DEPENDS relatorios-tarvo
    VERBATIM)
add_custom_target(banco_de_exemplo ALL DEPENDS exemplo.tarvo)
install(FILES ${PROJECT_BINARY_DIR}/exemplo.tarvo
    DESTINATION ${CMAKE_INSTALL_DATADIR}/relatoriostarvo COMPONENT nucleo)
install(FILES docs/guia.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/relatoriostarvo COMPONENT nucleo)
install(DIRECTORY docs/imagens
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/relatoriostarvo COMPONENT nucleo)
if(TARVO_DESKTOP)
    # The command looks for it here.
    install(TARGETS relatorios-tarvo-janela
        RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/relatoriostarvo COMPONENT desktop)
    # Names the program with its path, which is known when it is installed.
    install(CODE "
        set(CMAKE_INSTALL_LIBEXECDIR ${CMAKE_INSTALL_LIBEXECDIR})
        configure_file(${PROJECT_SOURCE_DIR}/host/windows/relatorios-tarvo.desktop.in
            ${PROJECT_BINARY_DIR}/relatorios-tarvo.desktop @ONLY)" COMPONENT desktop)
    install(FILES ${PROJECT_BINARY_DIR}/relatorios-tarvo.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT desktop)
    install(FILES document/images/relatorios-tarvo.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT desktop)
endif()
install(FILES docs/hospedeiros.md
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/relatoriostarvo-dev COMPONENT dev)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/relatoriostarvo-dev COMPONENT dev)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME relatoriostarvo)
set(CPACK_PACKAGE_CONTACT "RelatoriosTarvo <relatoriostarvo@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/pacotes)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL nucleo dev)
if(TARVO_DESKTOP)
    list(APPEND CPACK_COMPONENTS_ALL desktop)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/interface)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)

set(mesma_versao "(= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_NUCLEO_PACKAGE_NAME relatoriostarvo)
set(CPACK_DEBIAN_NUCLEO_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_NUCLEO_PACKAGE_DEPENDS fonts-liberation)
set(CPACK_DEBIAN_NUCLEO_PACKAGE_SUGGESTS relatoriostarvo-desktop)
set(CPACK_COMPONENT_NUCLEO_DESCRIPTION "Relatórios da declaração de ICMS (DRQ)
O comando relatorios-tarvo, que exporta e imprime os relatórios, e as
bibliotecas com que outros programas os produzem. Não precisa de janelas.")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME relatoriostarvo-desktop)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS
    "relatoriostarvo ${mesma_versao}, qt6-translations-l10n")
set(CPACK_COMPONENT_DESKTOP_DESCRIPTION "Relatórios da declaração de ICMS (DRQ): janelas
A seleção de relatórios, a visualização e a impressão.")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME relatoriostarvo-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "relatoriostarvo ${mesma_versao}")
set(CPACK_DEBIAN_DEV_PACKAGE_SUGGESTS "relatoriostarvo-desktop ${mesma_versao}")
set(CPACK_COMPONENT_DEV_DESCRIPTION "Relatórios da declaração de ICMS (DRQ): desenvolvimento
Cabeçalhos, pacote do CMake, pkg-config, guia e exemplos para programas que
usam as bibliotecas.")
include(CPack)

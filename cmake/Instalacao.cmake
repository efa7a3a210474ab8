# SPDX-License-Identifier: MIT
# What `cmake --install` puts where. debian/ says which package holds what of it.
include(CMakePackageConfigHelpers)

set(pacote_cmake ${CMAKE_INSTALL_LIBDIR}/cmake/RelatoriosTarvo)
set(documentos ${CMAKE_INSTALL_DATADIR}/doc/relatoriostarvo)

# instalar_configurado(SOURCE FILE FOLDER): a file that names folders of the installation, which are
# known when it is installed.
function(instalar_configurado origem nome pasta)
    install(CODE "
        set(PROJECT_VERSION ${PROJECT_VERSION})
        set(biblioteca \"${biblioteca}\")
        set(precisa \"${precisa}\")
        set(LIBDIR ${CMAKE_INSTALL_LIBDIR})
        set(INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR})
        set(LIBEXECDIR ${CMAKE_INSTALL_LIBEXECDIR})
        configure_file(${PROJECT_SOURCE_DIR}/${origem} ${PROJECT_BINARY_DIR}/${nome} @ONLY)")
    install(FILES ${PROJECT_BINARY_DIR}/${nome} DESTINATION ${pasta})
endfunction()

set(precisa_SQLite relatoriostarvo-nucleo)
set(precisa_PDF relatoriostarvo-nucleo)
set(precisa_Planilha relatoriostarvo-nucleo)
set(precisa_Desktop "relatoriostarvo-pdf relatoriostarvo-planilha")
foreach(componente Nucleo SQLite PDF Planilha Desktop C)
    if(TARGET tarvo_instalada_${componente})
        install(TARGETS tarvo_instalada_${componente} EXPORT RelatoriosTarvo${componente}
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
            FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
        install(EXPORT RelatoriosTarvo${componente} NAMESPACE RelatoriosTarvo::
            DESTINATION ${pacote_cmake})
        # The C interface is what programs without CMake mostly want: it has the plain name.
        string(TOLOWER relatoriostarvo-${componente} pc)
        string(REGEX REPLACE "-c$" "" pc ${pc})
        get_target_property(biblioteca tarvo_instalada_${componente} OUTPUT_NAME)
        set(precisa ${precisa_${componente}})
        instalar_configurado(cmake/relatoriostarvo.pc.in ${pc}.pc ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
    endif()
endforeach()

configure_package_config_file(
    cmake/RelatoriosTarvoConfig.cmake.in ${PROJECT_BINARY_DIR}/RelatoriosTarvoConfig.cmake
    INSTALL_DESTINATION ${pacote_cmake})
# The C++ classes are those of one minor version; the C interface is promised for the major one.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/RelatoriosTarvoConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/RelatoriosTarvoConfig.cmake
    ${PROJECT_BINARY_DIR}/RelatoriosTarvoConfigVersion.cmake
    DESTINATION ${pacote_cmake})

# The library looks for it here.
install(TARGETS relatorios-tarvo-mdb
    RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/relatoriostarvo)
install(FILES docs/hospedeiros.md DESTINATION ${documentos})
install(DIRECTORY examples DESTINATION ${documentos})

if(TARVO_COMANDO)
    install(TARGETS relatorios-tarvo RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(FILES docs/relatorios-tarvo.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/pt_BR/man1)
    install(FILES docs/en/relatorios-tarvo.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    # Something to try the command on.
    add_custom_command(OUTPUT exemplo.tarvo
        COMMAND ${CMAKE_COMMAND} -E rm -f exemplo.tarvo
        COMMAND relatorios-tarvo criar exemplo.tarvo --exemplo
        DEPENDS relatorios-tarvo
        VERBATIM)
    add_custom_target(banco_de_exemplo ALL DEPENDS exemplo.tarvo)
    install(FILES ${PROJECT_BINARY_DIR}/exemplo.tarvo
        DESTINATION ${CMAKE_INSTALL_DATADIR}/relatoriostarvo)
    install(FILES docs/guia.md docs/servidores.md DESTINATION ${documentos})
    install(DIRECTORY docs/imagens DESTINATION ${documentos})
endif()
if(TARGET relatorios-tarvo-janela)
    # The command looks for it here.
    install(TARGETS relatorios-tarvo-janela
        RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/relatoriostarvo)
    instalar_configurado(host/windows/relatorios-tarvo.desktop.in relatorios-tarvo.desktop
        ${CMAKE_INSTALL_DATADIR}/applications)
    install(FILES document/images/relatorios-tarvo.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
    install(FILES host/windows/relatorios-tarvo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
    install(FILES host/windows/relatorios-tarvo.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
endif()

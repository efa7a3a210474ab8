# SPDX-License-Identifier: MIT
# tarvo_biblioteca(NAME SOURCES...): one library per folder. Headers are included from the
# root of the tree ("data/Moeda.h"), so that an include says where the thing lives.
function(tarvo_biblioteca nome)
    add_library(tarvo_${nome} STATIC ${ARGN})
    target_include_directories(tarvo_${nome} PUBLIC ${PROJECT_SOURCE_DIR})
    tarvo_comodo(tarvo_${nome})
endfunction()

# tarvo_comodo(TARGET): a line for the target in build/comodos.txt, which a test holds against the
# tree's includes: folder, sources, what it links and what it hands on to those who link it.
function(tarvo_comodo alvo)
    set(linha "${alvo}|${CMAKE_CURRENT_SOURCE_DIR}")
    foreach(propriedade SOURCES LINK_LIBRARIES INTERFACE_LINK_LIBRARIES)
        string(APPEND linha "|$<JOIN:$<TARGET_PROPERTY:${alvo},${propriedade}>,$<COMMA>>")
    endforeach()
    set_property(GLOBAL APPEND_STRING PROPERTY TARVO_COMODOS "${linha}\n")
endfunction()

# tarvo_teste(NAME LIBRARIES SOURCES...): one test program per folder under tests/.
function(tarvo_teste nome bibliotecas)
    add_executable(teste_${nome} ${ARGN})
    target_link_libraries(teste_${nome} PRIVATE ${bibliotecas} GTest::gmock GTest::gtest_main)
    target_include_directories(teste_${nome} PRIVATE ${PROJECT_SOURCE_DIR})
    add_test(NAME ${nome} COMMAND teste_${nome})
    set(vazamentos "suppressions=${PROJECT_SOURCE_DIR}/tests/vazamentos.txt:print_suppressions=0")
    set(corridas "suppressions=${PROJECT_SOURCE_DIR}/tests/corridas.txt:print_suppressions=0")
    set_tests_properties(${nome} PROPERTIES ENVIRONMENT
        "LC_ALL=C.UTF-8;TZ=UTC;ASAN_OPTIONS=detect_leaks=1;LSAN_OPTIONS=${vazamentos};TSAN_OPTIONS=${corridas}")
endfunction()

# tarvo_com_qt(NAME): that test runs Qt, whose locks the thread sanitizer cannot see; what Qt does by
# itself is not for it.
function(tarvo_com_qt nome)
    get_test_property(${nome} ENVIRONMENT ambiente)
    set_tests_properties(${nome} PROPERTIES ENVIRONMENT "${ambiente}:ignore_noninstrumented_modules=1")
endfunction()

# tarvo_com_leitor_mdb(NAME): that test reads files of the desktop engine. The library looks for their
# reader beside the program.
function(tarvo_com_leitor_mdb nome)
    add_dependencies(teste_${nome} relatorios-tarvo-mdb)
    add_custom_command(TARGET teste_${nome} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E create_symlink $<TARGET_FILE:relatorios-tarvo-mdb>
            $<TARGET_FILE_DIR:teste_${nome}>/relatorios-tarvo-mdb
        VERBATIM)
endfunction()

# tarvo_embutir(TARGET FILE...): each file becomes a byte array of its own name in the namespace
# tarvo::embutido, which TARGET gets with #include "embutido/NAME.h". No tools but CMake.
function(tarvo_embutir alvo)
    foreach(arquivo ${ARGN})
        get_filename_component(nome ${arquivo} NAME_WE)
        set(entrada ${CMAKE_CURRENT_SOURCE_DIR}/${arquivo})
        set(saida ${CMAKE_CURRENT_BINARY_DIR}/embutido/${nome}.h)
        set(script ${PROJECT_SOURCE_DIR}/cmake/Embutir.cmake)
        add_custom_command(OUTPUT ${saida}
            COMMAND ${CMAKE_COMMAND} -DARQUIVO=${entrada} -DNOME=${nome} -DSAIDA=${saida} -P ${script}
            DEPENDS ${entrada} ${script}
            VERBATIM)
        target_sources(${alvo} PRIVATE ${saida})
    endforeach()
    target_include_directories(${alvo} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
endfunction()

# tarvo_instalada(COMPONENT FOLDERS f... HEADERS h... [SOURCES s...] [LINK l...]): an installed shared
# library of the objects of those folders, which are not compiled again; what the folders link from
# outside the project it links too. Programs find it as RelatoriosTarvo::COMPONENT, and the headers
# in one folder: <relatoriostarvo/BancoDados.h>.
function(tarvo_instalada componente)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "FOLDERS;HEADERS;SOURCES;LINK")
    set(alvo tarvo_instalada_${componente})
    if(componente STREQUAL Nucleo)
        set(nome RelatoriosTarvo)
    else()
        set(nome RelatoriosTarvo${componente})
    endif()
    add_library(${alvo} SHARED ${arg_SOURCES})
    add_library(RelatoriosTarvo::${componente} ALIAS ${alvo})
    set_target_properties(${alvo} PROPERTIES
        OUTPUT_NAME ${nome}
        EXPORT_NAME ${componente}
        LINKER_LANGUAGE CXX
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        BUILD_RPATH $ORIGIN
        INSTALL_RPATH $ORIGIN)
    target_link_options(${alvo} PRIVATE -Wl,-z,defs)
    foreach(pasta ${arg_FOLDERS})
        target_sources(${alvo} PRIVATE $<TARGET_OBJECTS:tarvo_${pasta}>)
        target_link_libraries(${alvo} PRIVATE
            $<FILTER:$<TARGET_PROPERTY:tarvo_${pasta},LINK_LIBRARIES>,EXCLUDE,^tarvo_>)
    endforeach()
    set(cabecalhos)
    foreach(cabecalho ${arg_HEADERS})
        get_filename_component(nome ${cabecalho} NAME)
        set(entrada ${PROJECT_SOURCE_DIR}/${cabecalho})
        set(saida ${PROJECT_BINARY_DIR}/include/relatoriostarvo/${nome})
        set(script ${PROJECT_SOURCE_DIR}/cmake/CabecalhoInstalado.cmake)
        add_custom_command(OUTPUT ${saida}
            COMMAND ${CMAKE_COMMAND} -DENTRADA=${entrada} -DSAIDA=${saida} -P ${script}
            DEPENDS ${entrada} ${script}
            VERBATIM)
        list(APPEND cabecalhos ${saida})
    endforeach()
    # Nothing that the library compiles needs them.
    add_custom_target(${alvo}_cabecalhos ALL DEPENDS ${cabecalhos})
    target_sources(${alvo} PUBLIC
        FILE_SET HEADERS BASE_DIRS ${PROJECT_BINARY_DIR}/include FILES ${cabecalhos})
    target_include_directories(${alvo} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
    target_link_libraries(${alvo} PUBLIC ${arg_LINK})
    target_compile_features(${alvo} INTERFACE cxx_std_20)
endfunction()

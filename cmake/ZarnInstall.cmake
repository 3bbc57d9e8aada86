# SPDX-License-Identifier: MIT
# What `cmake --install` puts where: the libraries, their headers, and the files by which CMake
# projects (find_package(ZarnCore)) and others (pkg-config zarncore) find them.
set(zarn_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ZarnCore)

set(zarn_libraries ZarnCore zarnfilesystem zarnstreams)
if(TARGET ZarnAudio)
    list(APPEND zarn_libraries ZarnAudio)
endif()
install(TARGETS ${zarn_libraries} EXPORT ZarnCoreTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zarncore)
install(EXPORT ZarnCoreTargets NAMESPACE Zarn:: DESTINATION ${zarn_cmake_dir})
# The libraries above it are export sets of their own: who uses the core alone needs no QtGui.
foreach(library ZarnLayout ZarnViews)
    if(TARGET ${library})
        install(TARGETS ${library} EXPORT ${library}Targets
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
            RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
            ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
            FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zarncore)
        install(EXPORT ${library}Targets NAMESPACE Zarn:: DESTINATION ${zarn_cmake_dir})
    endif()
endforeach()

configure_package_config_file(cmake/ZarnCoreConfig.cmake.in ZarnCoreConfig.cmake
    INSTALL_DESTINATION ${zarn_cmake_dir})
write_basic_package_version_file(ZarnCoreConfigVersion.cmake COMPATIBILITY SameMajorVersion)

# Relative install folders are taken below the prefix, absolute ones stand as they are.
foreach(kind LIBDIR INCLUDEDIR)
    if(IS_ABSOLUTE "${CMAKE_INSTALL_${kind}}")
        set(ZARN_PC_${kind} "${CMAKE_INSTALL_${kind}}")
    else()
        set(ZARN_PC_${kind} "\${prefix}/${CMAKE_INSTALL_${kind}}")
    endif()
endforeach()
# The module finds its prefix from where it lies, so that an installed tree can be moved.
file(RELATIVE_PATH ZARN_PC_UP "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
configure_file(cmake/zarncore.pc.in zarncore.pc @ONLY)

install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ZarnCoreConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/ZarnCoreConfigVersion.cmake DESTINATION ${zarn_cmake_dir})
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zarncore.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
if(TARGET ZarnAudio)
    configure_file(cmake/zarnaudio.pc.in zarnaudio.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zarnaudio.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endif()
install(FILES LICENSE README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
if(TARGET ZarnLayout) # carries fonts, which come with licences of their own
    foreach(font bravura edwin)
        install(FILES Resources/fonts/${font}/LICENSE.txt
            DESTINATION ${CMAKE_INSTALL_DOCDIR}/fonts/${font})
    endforeach()
endif()

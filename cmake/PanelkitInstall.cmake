# Install rules: the two libraries, every public header, the resources, a CMake package
# (find_package(Panelkit) -> Panelkit::base, Panelkit::panelkit) and pkg-config files. Headers,
# texts and icons are found by globbing, so files added later are installed without touching this
# file.

include(CMakePackageConfigHelpers)

set(PANELKIT_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/panelkit)
set(PANELKIT_INSTALL_DATADIR ${CMAKE_INSTALL_DATADIR}/panelkit)
set(PANELKIT_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/Panelkit)
set(PANELKIT_INSTALL_PKGCONFIGDIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# Installs every file below `root` that matches one of the patterns into `destination`, keeping
# its path relative to `root`.
function(panelkit_install_tree root destination component)
    set(globs "")
    foreach(pattern IN LISTS ARGN)
        list(APPEND globs ${root}/${pattern})
    endforeach()
    file(GLOB_RECURSE files CONFIGURE_DEPENDS RELATIVE ${root} ${globs})
    foreach(file IN LISTS files)
        get_filename_component(folder ${file} DIRECTORY)
        install(FILES ${root}/${file} DESTINATION ${destination}/${folder} COMPONENT ${component})
    endforeach()
endfunction()

install(TARGETS panelkit-base panelkit
    EXPORT PanelkitTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime NAMELINK_COMPONENT Development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime)

# Both include roots merge into one: base/qor/X.h and toolkit/foundation/Y.h become
# include/panelkit/qor/X.h and include/panelkit/foundation/Y.h, so includes read the same as in
# the source tree.
panelkit_install_tree(${PROJECT_SOURCE_DIR}/base ${PANELKIT_INSTALL_INCLUDEDIR} Development *.h)
panelkit_install_tree(${PROJECT_SOURCE_DIR}/toolkit ${PANELKIT_INSTALL_INCLUDEDIR} Development *.h)

# The same layout as the build tree's mirror in <build>/share/panelkit: the texts as they are, the
# icons as the build rendered them (resources/CMakeLists.txt lists them).
panelkit_install_tree(${PROJECT_SOURCE_DIR}/resources ${PANELKIT_INSTALL_DATADIR} Runtime strings/*)
install(FILES ${PANELKIT_ICON_FILES} DESTINATION ${PANELKIT_INSTALL_DATADIR}/icons COMPONENT Runtime)

install(EXPORT PanelkitTargets
    NAMESPACE Panelkit::
    DESTINATION ${PANELKIT_INSTALL_CMAKEDIR}
    COMPONENT Development)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/PanelkitConfig.cmake.in
    ${PROJECT_BINARY_DIR}/PanelkitConfig.cmake
    INSTALL_DESTINATION ${PANELKIT_INSTALL_CMAKEDIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/PanelkitConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/PanelkitConfig.cmake
    ${PROJECT_BINARY_DIR}/PanelkitConfigVersion.cmake
    ${PROJECT_SOURCE_DIR}/cmake/FindLoki.cmake
    DESTINATION ${PANELKIT_INSTALL_CMAKEDIR}
    COMPONENT Development)

# The .pc files locate the prefix from their own folder, so an installed tree can be moved (or
# installed with `cmake --install --prefix`) and still describe itself correctly.
if(IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
    set(PANELKIT_PC_PREFIX ${CMAKE_INSTALL_PREFIX})
else()
    file(RELATIVE_PATH PANELKIT_PC_PREFIX /prefix/${PANELKIT_INSTALL_PKGCONFIGDIR} /prefix)
    string(REGEX REPLACE "/$" "" PANELKIT_PC_PREFIX ${PANELKIT_PC_PREFIX})
    set(PANELKIT_PC_PREFIX "\${pcfiledir}/${PANELKIT_PC_PREFIX}")
endif()
foreach(dir LIBDIR INCLUDEDIR DATADIR)
    if(IS_ABSOLUTE ${CMAKE_INSTALL_${dir}})
        set(PANELKIT_PC_${dir} ${CMAKE_INSTALL_${dir}})
    else()
        set(PANELKIT_PC_${dir} "\${prefix}/${CMAKE_INSTALL_${dir}}")
    endif()
endforeach()
# The definitions every user must compile with come from the targets themselves, so the .pc files
# and the CMake package cannot disagree.
foreach(name panelkit-base panelkit)
    set(definitions "$<TARGET_PROPERTY:${name},INTERFACE_COMPILE_DEFINITIONS>")
    set(PANELKIT_PC_DEFINITIONS "$<$<BOOL:${definitions}>: -D$<JOIN:${definitions}, -D>>")
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc.gen
        @ONLY)
    file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/${name}.pc INPUT ${PROJECT_BINARY_DIR}/${name}.pc.gen)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.pc
        DESTINATION ${PANELKIT_INSTALL_PKGCONFIGDIR}
        COMPONENT Development)
endforeach()

# Drives the packaging tests; run with cmake -P. MODE selects the step:
#   install    installs the build tree BUILD_DIR into a fresh PREFIX and checks what landed there;
#   cmake      builds examples/consumer with find_package(Panelkit) against PREFIX and runs it;
#   pkgconfig  compiles the same program with the flags pkg-config reports and runs it.
# A failing step names the command and shows everything it printed.

cmake_minimum_required(VERSION 3.25)

function(fail message)
    message(FATAL_ERROR "${message}")
endfunction()

# Runs a command; stops the test with its output when it fails. OUTPUT receives stdout and stderr.
function(run description)
    cmake_parse_arguments(arg "" "OUTPUT" "COMMAND" ${ARGN})
    execute_process(COMMAND ${arg_COMMAND} RESULT_VARIABLE result OUTPUT_VARIABLE out
                    ERROR_VARIABLE out)
    if(NOT result EQUAL 0)
        list(JOIN arg_COMMAND " " shown)
        fail("${description} failed (${result}):\n  ${shown}\n${out}")
    endif()
    if(arg_OUTPUT)
        set(${arg_OUTPUT} "${out}" PARENT_SCOPE)
    endif()
endfunction()

function(expect_file path)
    if(NOT EXISTS ${path})
        fail("missing from the installed tree: ${path}")
    endif()
endfunction()

# Every file below `root` matching the patterns must be installed below `destination` at the same
# relative path.
function(expect_tree root destination)
    set(globs "")
    foreach(pattern IN LISTS ARGN)
        list(APPEND globs ${root}/${pattern})
    endforeach()
    file(GLOB_RECURSE files RELATIVE ${root} ${globs})
    foreach(file IN LISTS files)
        expect_file(${destination}/${file})
    endforeach()
endfunction()

function(expect_soname library soname)
    run("reading the dynamic section of ${library}" COMMAND readelf -d ${library} OUTPUT dynamic)
    string(REGEX MATCH "Library soname: \\[([^]]*)\\]" found "${dynamic}")
    if(NOT CMAKE_MATCH_1 STREQUAL soname)
        fail("${library} has soname '${CMAKE_MATCH_1}', expected '${soname}'")
    endif()
endfunction()

# The consumer prints one line starting "panelkit-consumer: ok" and exits 0 when its checks hold.
function(run_consumer program)
    run("running the consumer" COMMAND ${program} OUTPUT out)
    if(NOT out MATCHES "panelkit-consumer: ok, Panelkit ${VERSION}")
        fail("the consumer printed no success line:\n${out}")
    endif()
    message(STATUS "${out}")
endfunction()

function(test_install)
    file(REMOVE_RECURSE ${PREFIX})
    run("installing the build tree"
        COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${PREFIX} --config "${CONFIG}")

    string(REGEX MATCH "^[0-9]+" major ${VERSION})
    set(lib ${PREFIX}/${LIBDIR})
    foreach(name panelkit-base panelkit)
        expect_file(${lib}/lib${name}.so)
        expect_file(${lib}/lib${name}.so.${major})
        expect_file(${lib}/lib${name}.so.${VERSION})
        expect_soname(${lib}/lib${name}.so.${VERSION} lib${name}.so.${major})
        expect_file(${lib}/pkgconfig/${name}.pc)
    endforeach()
    foreach(file PanelkitConfig.cmake PanelkitConfigVersion.cmake PanelkitTargets.cmake
                 FindLoki.cmake)
        expect_file(${lib}/cmake/Panelkit/${file})
    endforeach()

    set(include ${PREFIX}/${INCLUDEDIR}/panelkit)
    expect_tree(${SOURCE_DIR}/base ${include} *.h)
    expect_tree(${SOURCE_DIR}/toolkit ${include} *.h)
    expect_file(${include}/Panelkit.h)
    expect_file(${include}/qor/Ptr.h)
    set(share ${PREFIX}/${DATADIR}/panelkit)
    expect_tree(${SOURCE_DIR}/resources ${share} strings/*)
    # The icons are rendered by the build, so every one in the build tree's share folder ships,
    # and the one widgets test for to learn whether there are icons at all must be among them.
    expect_tree(${BUILD_DIR}/${DATADIR}/panelkit ${share} icons/*)
    expect_file(${share}/icons/button-menu-reveal.png)
    expect_file(${share}/icons/button-menu-reveal-2x.png)
endfunction()

function(test_cmake_consumer)
    set(work ${WORK_DIR}/cmake-consumer)
    file(REMOVE_RECURSE ${work})
    run("configuring the consumer"
        COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples/consumer -B ${work} -G ${GENERATOR}
                -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_BUILD_TYPE=${CONFIG}
                -DCMAKE_CXX_FLAGS=${FLAGS} -DCMAKE_EXE_LINKER_FLAGS=${FLAGS}
                -DCMAKE_PREFIX_PATH=${PREFIX} -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF)

    # The package must come from the fresh prefix, not from anything else on the machine.
    file(STRINGS ${work}/CMakeCache.txt found REGEX "^Panelkit_DIR:")
    string(REGEX REPLACE "^[^=]*=" "" found "${found}")
    file(REAL_PATH ${found} found)
    file(REAL_PATH ${PREFIX} prefix)
    string(FIND "${found}" "${prefix}/" at)
    if(NOT at EQUAL 0)
        fail("find_package(Panelkit) found ${found}, outside ${prefix}")
    endif()

    run("building the consumer" COMMAND ${CMAKE_COMMAND} --build ${work} --config "${CONFIG}")
    file(GLOB_RECURSE programs ${work}/panelkit-consumer)
    if(NOT programs)
        fail("the consumer build produced no panelkit-consumer below ${work}")
    endif()
    list(GET programs 0 program)
    run_consumer(${program})
endfunction()

function(test_pkgconfig_consumer)
    set(work ${WORK_DIR}/pkgconfig-consumer)
    file(REMOVE_RECURSE ${work})
    file(MAKE_DIRECTORY ${work})
    set(ENV{PKG_CONFIG_PATH} ${PREFIX}/${LIBDIR}/pkgconfig)

    run("asking pkg-config for the version" COMMAND pkg-config --modversion panelkit OUTPUT version)
    string(STRIP "${version}" version)
    if(NOT version STREQUAL VERSION)
        fail("pkg-config reports version '${version}', expected '${VERSION}'")
    endif()

    run("asking pkg-config for the flags" COMMAND pkg-config --cflags --libs panelkit OUTPUT flags)
    string(STRIP "${flags}" flags)
    foreach(expected -lpanelkit -lpanelkit-base -lloki)
        if(NOT " ${flags} " MATCHES " ${expected} ")
            fail("pkg-config --cflags --libs panelkit lacks ${expected}: ${flags}")
        endif()
    endforeach()

    # The .pc files find the prefix from their own location, so libdir must lie in this prefix.
    run("asking pkg-config for libdir" COMMAND pkg-config --variable=libdir panelkit OUTPUT libdir)
    string(STRIP "${libdir}" libdir)
    file(REAL_PATH ${libdir} libdir)
    file(REAL_PATH ${PREFIX}/${LIBDIR} expected)
    if(NOT libdir STREQUAL expected)
        fail("pkg-config places libdir at ${libdir}, expected ${expected}")
    endif()

    separate_arguments(flags UNIX_COMMAND "${flags}")
    separate_arguments(sanitizer UNIX_COMMAND "${FLAGS}")
    set(program ${work}/panelkit-consumer)
    run("compiling the consumer with pkg-config's flags"
        COMMAND ${CXX} -std=c++20 ${sanitizer} "-DPANELKIT_EXPECTED_VERSION=\"${VERSION}\""
                ${SOURCE_DIR}/examples/consumer/main.cpp -o ${program} ${flags}
                -Wl,-rpath,${libdir})
    run_consumer(${program})
endfunction()

if(MODE STREQUAL "install")
    test_install()
elseif(MODE STREQUAL "cmake")
    test_cmake_consumer()
elseif(MODE STREQUAL "pkgconfig")
    test_pkgconfig_consumer()
else()
    fail("unknown MODE '${MODE}': expected install, cmake or pkgconfig")
endif()

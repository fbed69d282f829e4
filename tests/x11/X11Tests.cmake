# The tests that need an X server: tests/x11/*.cpp become panelkit-tests-x11, labelled x11, which
# scripts/run-tests.sh runs under a virtual server and leaves out of the plain run. They speak to
# the server themselves too (reading pixels and properties back), so they link Xlib.
if(NOT TARGET panelkit-tests-x11)
    panelkit_test_folder(x11)
endif()
if(TARGET panelkit-tests-x11)
    target_link_libraries(panelkit-tests-x11 PRIVATE PkgConfig::X11)
endif()

# What every test is started through, and every program of ours that the build runs. A list of environment variables
# does not survive gtest_discover_tests(), which takes its items for test properties.
set(TEST_LAUNCHER ${CMAKE_COMMAND} -E env
    QT_QPA_PLATFORM=offscreen
    XDG_RUNTIME_DIR=/tmp
    QT_GSTREAMER_PLAYBIN_AUDIOSINK=fakesink
    LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/leaks.supp
    TSAN_OPTIONS=ignore_noninstrumented_modules=1)

# Builds the page with pkg-config alone: sh build-without-cmake.sh
set -e
moc="$(pkg-config --variable=host_bins Qt5Core)/moc $(pkg-config --cflags-only-I tav-data-plugin)"
$moc NetControlController.h -o moc_NetControlController.cpp
$moc NetControlPage.h -o moc_NetControlPage.cpp
$moc NetControlPagePlugin.cpp -o NetControlPagePlugin.moc
# The package's flags come last: -UNDEBUG is among them, and must come after any -DNDEBUG.
g++ -std=c++17 -fPIC -fvisibility=hidden -O2 -DNDEBUG $(pkg-config --cflags tav-data-plugin Qt5Widgets) \
    -shared -o libNetControlPagePlugin.so \
    NetControlPagePlugin.cpp NetControlPage.cpp NetControlController.cpp \
    moc_NetControlPage.cpp moc_NetControlController.cpp \
    $(pkg-config --libs tav-data-plugin Qt5Widgets)

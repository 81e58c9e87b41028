# Headers of others, which take most of a file's compiling, are compiled once for many targets. Files include what they
# need all the same: clang-tidy looks at them without.
option(PELRATH_PRECOMPILE "Compile the headers of others once" ON)

set(PELRATH_STANDARD_HEADERS
    <algorithm> <array> <cerrno> <chrono> <cmath> <cstddef> <cstdint> <cstring> <exception> <filesystem> <functional>
    <map> <memory> <optional> <set> <span> <string> <string_view> <utility> <vector>)
# Of the toolkit, what most files of the windows use: all of it takes twice as long.
set(PELRATH_WIDGET_HEADERS
    <QApplication> <QButtonGroup> <QCheckBox> <QClipboard> <QComboBox> <QDialog> <QElapsedTimer> <QFontMetrics> <QFrame>
    <QGroupBox> <QHeaderView> <QImage> <QKeyEvent> <QLabel> <QLineEdit> <QListView> <QMenu> <QMessageBox> <QPainter>
    <QPlainTextEdit> <QPointer> <QPushButton> <QRadioButton> <QScreen> <QScrollBar> <QStyle> <QTimer> <QTreeView> <QUrl>
    <QVBoxLayout> <QWidget>)

function(precompile target)
    if(PELRATH_PRECOMPILE)
        target_precompile_headers(${target} PRIVATE ${PELRATH_STANDARD_HEADERS} ${ARGN})
    endif()
endfunction()

# Has nothing but the standard library's.
file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/standard_headers.cpp" CONTENT "")
add_library(pelrath_standard_headers OBJECT "${CMAKE_BINARY_DIR}/standard_headers.cpp")
target_link_libraries(pelrath_standard_headers PRIVATE pelrath_warnings)
precompile(pelrath_standard_headers)

# The two have to be compiled with the same options and definitions, but for warnings.
function(precompiled_as target other)
    if(PELRATH_PRECOMPILE)
        target_precompile_headers(${target} REUSE_FROM ${other})
    endif()
endfunction()

# Every target of the project is built with these; the tree is kept free of warnings.
add_library(pelrath_warnings INTERFACE)
target_compile_options(pelrath_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Werror)

# How this project's own targets are compiled. Linked privately, so that nothing of it reaches a host.
add_library(QuendaBuildOptions INTERFACE)
target_compile_options(QuendaBuildOptions INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wundef -Wcast-align -Wcast-qual -Wformat=2
    -Wold-style-cast -Woverloaded-virtual -Wsuggest-override)
# The store has no virtual destructor, and boost::shared_ptr deletes it as the concrete type. This is a
# warning of Clang. g++'s commands have the option, too, because the analysers read them with Clang.
target_compile_options(QuendaBuildOptions INTERFACE -Wno-delete-non-abstract-non-virtual-dtor)
target_compile_definitions(QuendaBuildOptions INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_FOREACH
    QT_NO_KEYWORDS
    QT_STRICT_ITERATORS)
target_link_options(QuendaBuildOptions INTERFACE LINKER:--as-needed)

if(QUENDAHELP_SANITIZE)
    target_compile_options(QuendaBuildOptions INTERFACE
        -fsanitize=${QUENDAHELP_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(QuendaBuildOptions INTERFACE -fsanitize=${QUENDAHELP_SANITIZE})
endif()

# Compares the symbols that the library exports with the committed list, its SONAME with the one that
# applications load, and the libraries that it needs with those that it may need. With RENEW, updates the
# list instead.

execute_process(
    COMMAND "${NM}" -D --defined-only --format=posix "${LIBRARY}"
    OUTPUT_VARIABLE output
    COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lines "${output}")
set(symbols "")
foreach(line IN LISTS lines)
    string(REGEX REPLACE " .*" "" symbol "${line}")
    list(APPEND symbols "${symbol}")
endforeach()
list(SORT symbols)

if(RENEW)
    string(JOIN "\n" text ${symbols})
    file(WRITE "${SYMBOLS}" "${text}\n")
    return()
endif()

# Reports what is in the first list and not in the second.
function(report_difference first second heading)
    set(difference ${${first}})
    list(REMOVE_ITEM difference ${${second}})
    if(difference)
        execute_process(COMMAND "${CXXFILT}" ${difference} OUTPUT_VARIABLE text)
        string(REGEX REPLACE "\n(.)" "\n  \\1" text "  ${text}")
        message(SEND_ERROR "${heading}\n${text}")
    endif()
endfunction()

file(STRINGS "${SYMBOLS}" expected)
report_difference(expected symbols "No longer exported, which breaks applications:")
report_difference(symbols expected
    "Exported, but not in the list (if you want that: script/renew symbols):")

set(allowed "${CORE}" libQt5Core.so.5 libQt5Xml.so.5 libstdc++.so.6 libgcc_s.so.1 libc.so.6)
execute_process(
    COMMAND "${READELF}" --dynamic --wide "${LIBRARY}"
    OUTPUT_VARIABLE output
    COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "\\(SONAME\\)[^\n]*" soname "${output}")
list(TRANSFORM soname REPLACE ".*\\[(.*)\\].*" "\\1")
report_difference(SONAME soname "Not the library's SONAME, by which applications find it:")
string(REGEX MATCHALL "\\(NEEDED\\)[^\n]*" needed "${output}")
list(TRANSFORM needed REPLACE ".*\\[(.*)\\].*" "\\1")
report_difference(needed allowed "Needed, but no library that this one may need:")

# A room is one folder under src/ and one static library. Its public include path shows that folder and nothing else,
# so a room can include only itself and the rooms it links: an arrow that points upwards does not compile.

add_library(corvane_options INTERFACE)
target_compile_options(corvane_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow=local -Wnon-virtual-dtor
                                                 -Woverloaded-virtual -Werror=return-type)
target_compile_definitions(corvane_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
                                                     QT_DISABLE_DEPRECATED_BEFORE=0x060400)
# ccache can only answer for a source that uses a precompiled header when gcc leaves the header's name in its output.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(corvane_options INTERFACE -fpch-preprocess)
endif()
if(CORVANE_SANITIZE)
    target_compile_options(corvane_options INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
                                                     -fno-sanitize-recover=undefined)
    target_link_options(corvane_options INTERFACE -fsanitize=address,undefined)
endif()
target_link_libraries(corvane_options INTERFACE Qt6::Core Qt6::Gui Qt6::Widgets Qt6::Network Qt6::Sql Qt6::Svg)

# The precompiled Qt headers, built once and shared by every target with the same options.
file(WRITE ${CMAKE_BINARY_DIR}/pch.cpp "")
add_library(corvane_pch STATIC ${CMAKE_BINARY_DIR}/pch.cpp)
target_link_libraries(corvane_pch PRIVATE corvane_options)
target_precompile_headers(corvane_pch PRIVATE <QtCore> <QtGui> <QtWidgets> <functional> <memory> <optional> <vector>)

function(corvane_show room folder)
    cmake_path(GET folder PARENT_PATH parent)
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/rooms/${room}/${parent})
    set(link ${CMAKE_BINARY_DIR}/rooms/${room}/${folder})
    if(NOT IS_SYMLINK ${link})
        file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${folder} ${link} SYMBOLIC)
    endif()
    target_include_directories(${room} PUBLIC ${CMAKE_BINARY_DIR}/rooms/${room})
endfunction()

# corvane_room(<name> FOLDER <folder under src/> SOURCES <files> LINKS <rooms and libraries>)
function(corvane_room name)
    cmake_parse_arguments(ROOM "NO_PCH" "FOLDER" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ROOM_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PUBLIC ${ROOM_LINKS} PRIVATE corvane_options)
    corvane_show(${name} ${ROOM_FOLDER})
    if(NOT ROOM_NO_PCH)
        target_precompile_headers(${name} REUSE_FROM corvane_pch)
    endif()
endfunction()

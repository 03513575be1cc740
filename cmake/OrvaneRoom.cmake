# orvane_include_folder(TARGET NAME): who links the target includes the files of the current folder as "NAME/...". The
# include path gets a folder that holds nothing but a link of this name.
function(orvane_include_folder target name)
  set(include ${CMAKE_CURRENT_BINARY_DIR}/include)
  file(MAKE_DIRECTORY ${include})
  file(RELATIVE_PATH folder ${include} ${CMAKE_CURRENT_SOURCE_DIR})
  file(CREATE_LINK ${folder} ${include}/${name} SYMBOLIC)
  target_include_directories(${target} PUBLIC ${include})
endfunction()

# Who builds from nothing saves a third of the time. Who works on one file compiles that file alone, and so do the
# sanitizers' and the fuzzer's builds, which prove that each file includes what it uses.
option(ORVANE_JOIN_SOURCES "Compile the files of a room several at a time" ON)

# orvane_room(NAME
#   logic_links PUBLIC ... PRIVATE ...
#   logic A.h A.cpp ...              the rules: library orvane_NAME
#   files C.h C.cpp ...              those of them that open files, in the words of POSIX, or need one that does; left out
#                                    where there is no POSIX, for scripts/other-machines
#   windows_links PUBLIC ... PRIVATE ...
#   windows B.h B.cpp ...)           the widgets: library orvane_NAME_windows, which links the logic and Qt
# The furniture of one room (a folder of src/), each file named. A room's files reach the headers of the rooms that it
# links and no others, so that an include upwards, or of Qt in the logic, does not compile. PUBLIC are those whose
# headers stand in this room's headers, PRIVATE those that only its .cpp files include.
function(orvane_room name)
  cmake_parse_arguments(ROOM "" "" "logic;logic_links;files;windows;windows_links" ${ARGN})

  if(UNIX)
    list(APPEND ROOM_logic ${ROOM_files})
  endif()
  add_library(orvane_${name} STATIC ${ROOM_logic})
  orvane_include_folder(orvane_${name} ${name})
  target_link_libraries(orvane_${name} PUBLIC orvane_compiler ${ROOM_logic_links})
  target_link_libraries(orvane_logic INTERFACE orvane_${name})
  if(ORVANE_JOIN_SOURCES)
    orvane_join_sources(orvane_${name} 24)
  endif()
  # What most files read of the standard library is read once, by the lowest room, for all.
  if(name STREQUAL text)
    target_precompile_headers(orvane_text PRIVATE <algorithm> <array> <cmath> <functional> <map> <memory> <optional>
      <string> <string_view> <utility> <vector>)
  else()
    target_precompile_headers(orvane_${name} REUSE_FROM orvane_text)
  endif()

  if(ORVANE_WINDOWS AND ROOM_windows)
    add_library(orvane_${name}_windows STATIC ${ROOM_windows})
    target_link_libraries(orvane_${name}_windows PUBLIC orvane_${name} orvane_qt ${ROOM_windows_links})
    set_target_properties(orvane_${name}_windows PROPERTIES AUTOMOC ON)
    target_link_libraries(orvane_windows INTERFACE orvane_${name}_windows)
    if(ORVANE_JOIN_SOURCES)
      orvane_join_sources(orvane_${name}_windows 24)
    endif()
    # The toolkit's headers take longer to read than the room's own files; the lowest room reads those for all that many
    # files include. (All of the toolkit's would be twice as much to read, and to load for each file.)
    if(name STREQUAL platform)
      target_precompile_headers(orvane_platform_windows PRIVATE <functional> <map> <memory> <optional> <string> <vector>
        <QAccessible> <QAction> <QApplication> <QCheckBox> <QClipboard> <QComboBox> <QDialog> <QFileInfo> <QGridLayout>
        <QHeaderView> <QKeyEvent> <QLabel> <QLineEdit> <QMainWindow> <QMenu> <QMenuBar> <QPainter> <QPlainTextEdit>
        <QPushButton> <QScrollBar> <QShortcut> <QSplitter> <QStyledItemDelegate> <QTextBlock> <QTextDocument> <QTimer>
        <QVBoxLayout>)
    else()
      target_precompile_headers(orvane_${name}_windows REUSE_FROM orvane_platform_windows)
    endif()
  endif()
endfunction()

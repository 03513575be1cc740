# A test: the help compiled again from SOURCES, later, elsewhere, in another time zone and language, is the same bytes
# as HELP_FILE. Takes the variables of CompileHelp.cmake, and AGAIN, the directory to compile in.
file(REMOVE_RECURSE "${AGAIN}")
file(COPY ${STAGED}/ DESTINATION "${AGAIN}/staged here")
file(GLOB_RECURSE copies "${AGAIN}/*")
file(TOUCH ${copies})

# The time in the file counts seconds.
execute_process(COMMAND ${CMAKE_COMMAND} -E sleep 1.1)
set(ENV{TZ} Asia/Tokyo)
set(ENV{LC_ALL} de_DE.UTF-8)
execute_process(
  COMMAND ${CMAKE_COMMAND} "-DSTAGED=${AGAIN}/staged here" -DCHMCMD=${CHMCMD} -DCLEAR_TIMES=${CLEAR_TIMES}
    "-DKEEP_UNCLEARED=${AGAIN}/with time.chm" "-DOUTPUT=${AGAIN}/orvane.chm" -P ${CMAKE_CURRENT_LIST_DIR}/CompileHelp.cmake
  COMMAND_ERROR_IS_FATAL ANY)

file(SHA256 ${HELP_FILE} first)
file(SHA256 "${AGAIN}/orvane.chm" second)
file(SHA256 "${AGAIN}/with time.chm" withTime)
if(NOT first STREQUAL second)
  message(FATAL_ERROR "the help compiled again differs: compare ${HELP_FILE} and ${AGAIN}/orvane.chm")
endif()
if(first STREQUAL withTime)
  message(FATAL_ERROR "the help compiler wrote no time, so this test proves nothing")
endif()

# A page or picture that CMakeLists.txt does not name would be missing without a word.
file(GLOB pages RELATIVE ${SOURCES} ${SOURCES}/*.htm ${SOURCES}/*/*.htm ${SOURCES}/pictures/*.png)
foreach(page IN LISTS pages)
  if(NOT EXISTS "${STAGED}/${page}")
    message(FATAL_ERROR "${page} is not in the help")
  endif()
endforeach()

# Figures drawn again, on another screen as it were.
set(ENV{QT_SCALE_FACTOR} 1.5)
set(ENV{QT_FONT_DPI} 120)
file(GLOB figures ${SOURCES}/figures/*.svg)
file(MAKE_DIRECTORY "${AGAIN}/figures")
foreach(figure IN LISTS figures)
  get_filename_component(name ${figure} NAME_WE)
  if(NOT EXISTS ${STAGED}/figures/${name}.png)
    message(FATAL_ERROR "${figure} is not in the help")
  endif()
  list(APPEND names ${name})
  list(APPEND figuresAndPictures ${figure} "${AGAIN}/figures/${name}.png")
endforeach()
execute_process(COMMAND ${RENDER_FIGURE} ${figuresAndPictures} COMMAND_ERROR_IS_FATAL ANY)
foreach(name IN LISTS names)
  file(SHA256 ${STAGED}/figures/${name}.png first)
  file(SHA256 "${AGAIN}/figures/${name}.png" second)
  if(NOT first STREQUAL second)
    message(FATAL_ERROR "${name} drawn again differs")
  endif()
endforeach()

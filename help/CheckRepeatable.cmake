# A test: the help compiled again, later, elsewhere, in another time zone and language, is the same bytes, and so are its
# figures drawn again from SOURCES on another screen. Takes the variables of CompileHelp.cmake; HELP_FILE, which is
# compiled of all that is STAGED; and AGAIN, the directory to compile in. Pictures take nine tenths of the time, and one
# is compiled like another: continuous integration takes all, who builds at home those of one chapter.
cmake_policy(VERSION 3.25)
file(REMOVE_RECURSE "${AGAIN}")
file(COPY ${STAGED}/ DESTINATION "${AGAIN}/staged here")
if("$ENV{CI}" STREQUAL true)
  set(figuresDrawn *)
  set(first ${HELP_FILE})
else()
  set(figuresDrawn gauss-*)
  file(STRINGS "${AGAIN}/staged here/orvane.hhp" lines)
  list(FILTER lines EXCLUDE REGEX "^(pictures/[^t]|figures/[^g])")
  list(JOIN lines "\n" project)
  file(WRITE "${AGAIN}/staged here/orvane.hhp" "${project}\n")
  file(COPY "${AGAIN}/staged here/" DESTINATION "${AGAIN}/staged")
  set(first "${AGAIN}/first.chm")
  execute_process(
    COMMAND ${CMAKE_COMMAND} -DSTAGED=${AGAIN}/staged -DCHMCMD=${CHMCMD} -DCLEAR_TIMES=${CLEAR_TIMES} -DOUTPUT=${first}
      -P ${CMAKE_CURRENT_LIST_DIR}/CompileHelp.cmake
    COMMAND_ERROR_IS_FATAL ANY)
endif()
file(GLOB_RECURSE copies "${AGAIN}/staged here/*")
file(TOUCH ${copies})

# The time in the file counts seconds.
execute_process(COMMAND ${CMAKE_COMMAND} -E sleep 1.1)
set(ENV{TZ} Asia/Tokyo)
set(ENV{LC_ALL} de_DE.UTF-8)
execute_process(
  COMMAND ${CMAKE_COMMAND} "-DSTAGED=${AGAIN}/staged here" -DCHMCMD=${CHMCMD} -DCLEAR_TIMES=${CLEAR_TIMES}
    "-DKEEP_UNCLEARED=${AGAIN}/with time.chm" "-DOUTPUT=${AGAIN}/orvane.chm" -P ${CMAKE_CURRENT_LIST_DIR}/CompileHelp.cmake
  COMMAND_ERROR_IS_FATAL ANY)

file(SHA256 ${first} firstHash)
file(SHA256 "${AGAIN}/orvane.chm" secondHash)
file(SHA256 "${AGAIN}/with time.chm" withTime)
if(NOT firstHash STREQUAL secondHash)
  message(FATAL_ERROR "the help compiled again differs: compare ${first} and ${AGAIN}/orvane.chm")
endif()
if(firstHash STREQUAL withTime)
  message(FATAL_ERROR "the help compiler wrote no time, so this test proves nothing")
endif()

# A page, picture or figure that CMakeLists.txt does not name would be missing without a word.
file(GLOB pages RELATIVE ${SOURCES} ${SOURCES}/*.htm ${SOURCES}/*/*.htm ${SOURCES}/pictures/*.png)
file(GLOB figures RELATIVE ${SOURCES} ${SOURCES}/figures/*.svg)
list(TRANSFORM figures REPLACE "svg$" "png")
foreach(page IN LISTS pages figures)
  if(NOT EXISTS "${STAGED}/${page}")
    message(FATAL_ERROR "${page} is not in the help")
  endif()
endforeach()

# Figures drawn again, on another screen as it were.
set(ENV{QT_SCALE_FACTOR} 1.5)
set(ENV{QT_FONT_DPI} 120)
file(GLOB figures ${SOURCES}/figures/${figuresDrawn}.svg)
file(MAKE_DIRECTORY "${AGAIN}/figures")
foreach(figure IN LISTS figures)
  get_filename_component(name ${figure} NAME_WE)
  list(APPEND names ${name})
  list(APPEND figuresAndPictures ${figure} "${AGAIN}/figures/${name}.png")
endforeach()
execute_process(COMMAND ${RENDER_FIGURE} ${figuresAndPictures} COMMAND_ERROR_IS_FATAL ANY)
foreach(name IN LISTS names)
  file(SHA256 ${STAGED}/figures/${name}.png firstHash)
  file(SHA256 "${AGAIN}/figures/${name}.png" secondHash)
  if(NOT firstHash STREQUAL secondHash)
    message(FATAL_ERROR "${name} drawn again differs")
  endif()
endforeach()

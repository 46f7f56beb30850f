# What Debian requires of the documents of a package, and an ordinary installation does not need: compressed manual
# pages and change logs, a copyright notice. CPack runs this on the installed files before it packs them. The files of
# each component can be in a folder of their own.
set(root ${CPACK_TEMPORARY_DIRECTORY})
file(GLOB compressed ${root}/usr/share/man/*/* ${root}/*/usr/share/man/*/*)
file(GLOB folders ${root}/usr/share/doc/* ${root}/*/usr/share/doc/*)
foreach(folder IN LISTS folders)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/../CHANGELOG.md ${folder}/changelog COPYONLY NO_SOURCE_PERMISSIONS)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog ${folder}/changelog.Debian COPYONLY NO_SOURCE_PERMISSIONS)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/copyright ${folder}/copyright COPYONLY NO_SOURCE_PERMISSIONS)
  file(REMOVE ${folder}/CHANGELOG.md)
  list(APPEND compressed ${folder}/changelog ${folder}/changelog.Debian)
endforeach()
execute_process(COMMAND gzip -9n ${compressed} COMMAND_ERROR_IS_FATAL ANY)

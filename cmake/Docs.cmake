# "docs": the HTML reference of the C interface, made from the comments in
# include/qva/qva.h with the README as its front page, in build/docs/html.
# Doxygen is needed only for this target.
find_package(Doxygen QUIET)
if(DOXYGEN_FOUND)
  set(DOXYGEN_PROJECT_NAME LibQVAClient)
  set(DOXYGEN_PROJECT_NUMBER ${PROJECT_VERSION})
  set(DOXYGEN_PROJECT_BRIEF "Certificate-validation client library")
  set(DOXYGEN_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/docs)
  set(DOXYGEN_GENERATE_HTML YES)
  set(DOXYGEN_GENERATE_LATEX NO)
  set(DOXYGEN_GENERATE_TREEVIEW YES)
  set(DOXYGEN_OPTIMIZE_OUTPUT_FOR_C YES)
  set(DOXYGEN_FULL_PATH_NAMES YES)
  set(DOXYGEN_STRIP_FROM_PATH ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR})
  set(DOXYGEN_USE_MDFILE_AS_MAINPAGE ${PROJECT_SOURCE_DIR}/README.md)
  # Only the public interface is documented; an undocumented name is a fault.
  set(DOXYGEN_WARN_IF_UNDOCUMENTED YES)
  set(DOXYGEN_WARN_NO_PARAMDOC YES)
  set(DOXYGEN_WARN_AS_ERROR YES)
  doxygen_add_docs(docs
    ${PROJECT_SOURCE_DIR}/include/qva/qva.h ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
    COMMENT "HTML reference in ${PROJECT_BINARY_DIR}/docs/html")
else()
  add_custom_target(docs
    COMMAND ${CMAKE_COMMAND} -E echo "docs: doxygen is not installed"
    COMMAND ${CMAKE_COMMAND} -E false)
endif()

# The build facts that RevisionInfo answers with. The version is the project's; the rest is asked of git at every build,
# so that a new commit shows without a new configure run. Outside a git checkout those facts are absent.

set(TARVO_REVISION_HEADER "${CMAKE_BINARY_DIR}/generated/RevisionFacts.h")

add_custom_target(tarvo_revision_facts
  BYPRODUCTS "${TARVO_REVISION_HEADER}"
  COMMAND ${CMAKE_COMMAND}
    -D "SOURCE_DIR=${CMAKE_SOURCE_DIR}"
    -D "OUTPUT=${TARVO_REVISION_HEADER}"
    -D "VERSION=V${PROJECT_VERSION}"
    -P "${CMAKE_SOURCE_DIR}/cmake/WriteRevisionFacts.cmake"
  COMMENT "Asking git for the build facts"
  VERBATIM)

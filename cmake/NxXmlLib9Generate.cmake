# nxxmllib9_generate(TARGET <target> SCHEMAS <files...> [CPP_NAMESPACE <ns>])
#
# Compiles the schemas with nxxsd at build time and adds the generated
# sources to the target, together with their directory on the include path
# and the library to link. One run covers all the schemas given, so that
# schemas which share types or a namespace compile together. The run is
# redone when the compiler or any schema read changes: the schemas named,
# and what they include or import, which nxxsd lists in a dependency file.
function(nxxmllib9_generate)
  cmake_parse_arguments(NXG "" "TARGET;CPP_NAMESPACE" "SCHEMAS" ${ARGN})
  if(NOT NXG_TARGET OR NOT NXG_SCHEMAS)
    message(FATAL_ERROR "nxxmllib9_generate: TARGET and SCHEMAS are required")
  endif()
  if(NXG_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "nxxmllib9_generate: unknown arguments ${NXG_UNPARSED_ARGUMENTS}")
  endif()
  if(NOT TARGET NxXmlLib9::nxxsd)
    message(FATAL_ERROR "nxxmllib9_generate: the schema compiler NxXmlLib9::nxxsd is not known")
  endif()

  set(out_dir ${CMAKE_CURRENT_BINARY_DIR}/nxxsd_${NXG_TARGET})
  set(schemas "")
  set(outputs "")
  foreach(schema ${NXG_SCHEMAS})
    get_filename_component(schema ${schema} ABSOLUTE BASE_DIR ${CMAKE_CURRENT_SOURCE_DIR})
    get_filename_component(schema_name ${schema} NAME)
    string(REGEX REPLACE "\\.xsd$" "" schema_name "${schema_name}")
    list(APPEND schemas ${schema})
    list(APPEND outputs ${out_dir}/${schema_name}.h ${out_dir}/${schema_name}.cpp)
  endforeach()

  set(namespace_option "")
  if(NXG_CPP_NAMESPACE)
    set(namespace_option --cpp-namespace ${NXG_CPP_NAMESPACE})
  endif()
  file(MAKE_DIRECTORY ${out_dir})
  add_custom_command(
    OUTPUT ${outputs}
    COMMAND NxXmlLib9::nxxsd --output-dir ${out_dir} ${namespace_option} --depfile ${out_dir}/nxxsd.d ${schemas}
    # The compiler leaves unchanged files alone; touching them keeps the
    # build from running it again and again.
    COMMAND ${CMAKE_COMMAND} -E touch ${outputs}
    DEPENDS ${schemas} NxXmlLib9::nxxsd
    DEPFILE ${out_dir}/nxxsd.d
    COMMENT "Compiling schemas of ${NXG_TARGET} with nxxsd"
    VERBATIM)
  target_sources(${NXG_TARGET} PRIVATE ${outputs})
  target_include_directories(${NXG_TARGET} PUBLIC $<BUILD_INTERFACE:${out_dir}>)
  target_link_libraries(${NXG_TARGET} PUBLIC NxXmlLib9::NxXmlLib9)
endfunction()

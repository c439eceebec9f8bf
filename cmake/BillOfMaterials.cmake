# The bills of materials, SPDX 2.3: what others have written and one of our packages or archives contains. As a script,
#   cmake -DNAME=NAME -DVERSION=VERSION -DFILE=FILE -DPARTS=PART;... -P cmake/BillOfMaterials.cmake
# writes one bill; included, it defines the functions. The same parts give the same bytes.
cmake_minimum_required(VERSION 3.25)

# Each part: its name, the Debian package that it comes with, the file of that package that tells its version where that is
# another one, and the expression that finds it there, license, copyright.
set(emscripten_sources /usr/share/emscripten/system/lib)
set(llvm_license "Apache-2.0 WITH LLVM-exception")
set(part_json "JSON for Modern C++" nlohmann-json3-dev "" "" MIT "Copyright (c) 2013-2022 Niels Lohmann")
set(part_pybind11 pybind11 pybind11-dev "" "" BSD-3-Clause "Copyright (c) 2016-2019 Wenzel Jakob")
set(part_emscripten Emscripten emscripten "" "" "MIT OR NCSA" "Copyright (c) 2010-2022 Emscripten authors")
set(part_musl musl emscripten libc/musl/VERSION "^([0-9.]+)" MIT "Copyright (c) 2005-2020 Rich Felker, et al.")
set(part_dlmalloc dlmalloc emscripten dlmalloc.c "Version ([0-9.]+)" CC0-1.0 NOASSERTION)
foreach(library libcxx libcxxabi libunwind compiler-rt)
  string(REPLACE cxx c++ name ${library})
  set(part_${library} ${name} emscripten ${library}/readme.txt "release ([0-9.]*[0-9])" "${llvm_license}" NOASSERTION)
endforeach()
# What each WebAssembly module brings.
set(runtime_of_modules emscripten musl libcxx libcxxabi libunwind compiler-rt dlmalloc)

# tallyfin_release_epoch(RESULT): the second that the files of a release carry: SOURCE_DATE_EPOCH, else the changelog's.
function(tallyfin_release_epoch result)
  set(epoch "$ENV{SOURCE_DATE_EPOCH}")
  if("${epoch}" STREQUAL "")
    file(STRINGS ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../packaging/changelog signature REGEX "^ -- " LIMIT_COUNT 1)
    string(REGEX REPLACE ".*>  " "" date "${signature}")
    execute_process(COMMAND date --utc --date ${date} +%s OUTPUT_VARIABLE epoch OUTPUT_STRIP_TRAILING_WHITESPACE
      COMMAND_ERROR_IS_FATAL ANY)
  endif()
  set(${result} ${epoch} PARENT_SCOPE)
endfunction()

# tallyfin_versions(VERSION PACKAGED DEBIAN-PACKAGE FILE EXPRESSION): sets the version of a part and of the Debian package that it
# comes with; without that package NOASSERTION, by which SPDX says that something isn't known.
function(tallyfin_versions version packaged package file expression)
  execute_process(COMMAND dpkg-query --show --showformat=\${Version} ${package} OUTPUT_VARIABLE found RESULT_VARIABLE failed
    ERROR_QUIET)
  if(failed)
    set(found NOASSERTION)
  endif()
  set(${packaged} ${found} PARENT_SCOPE)
  if(file)
    file(READ ${emscripten_sources}/${file} text)
    string(REGEX MATCH "${expression}" matched "${text}")
    set(found ${CMAKE_MATCH_1})
  endif()
  set(${version} ${found} PARENT_SCOPE)
endfunction()

# tallyfin_bill_of_materials(FILE NAME VERSION PARTS...): writes the bill of what is called NAME.
function(tallyfin_bill_of_materials file ours our_version)
  set(unknown "\"downloadLocation\": \"NOASSERTION\", \"filesAnalyzed\": false")
  set(packages "{\"SPDXID\": \"SPDXRef-${ours}\", \"name\": \"${ours}\", \"versionInfo\": \"${our_version}\", ${unknown},
    \"licenseConcluded\": \"MIT\", \"licenseDeclared\": \"MIT\", \"copyrightText\": \"Copyright (c) 2026 The Tallyfin 99 authors\",
    \"supplier\": \"Organization: The Tallyfin 99 authors\"}")
  set(relationships "{\"spdxElementId\": \"SPDXRef-DOCUMENT\", \"relationshipType\": \"DESCRIBES\",
    \"relatedSpdxElement\": \"SPDXRef-${ours}\"}")
  foreach(part ${ARGN})
    set(fields "${part_${part}}")
    list(POP_FRONT fields name package where expression license copyright)
    tallyfin_versions(version packaged ${package} "${where}" "${expression}")
    string(APPEND packages ",\n{\"SPDXID\": \"SPDXRef-${part}\", \"name\": \"${name}\", \"versionInfo\": \"${version}\", ${unknown},
      \"licenseConcluded\": \"${license}\", \"licenseDeclared\": \"${license}\", \"copyrightText\": \"${copyright}\",
      \"supplier\": \"NOASSERTION\", \"externalRefs\": [{\"referenceCategory\": \"PACKAGE-MANAGER\", \"referenceType\": \"purl\",
      \"referenceLocator\": \"pkg:deb/debian/${package}@${packaged}\"}]}")
    string(APPEND relationships ",\n{\"spdxElementId\": \"SPDXRef-${ours}\", \"relationshipType\": \"CONTAINS\",
      \"relatedSpdxElement\": \"SPDXRef-${part}\"}")
  endforeach()

  tallyfin_release_epoch(epoch)
  execute_process(COMMAND date --utc --date @${epoch} +%Y-%m-%dT%H:%M:%SZ OUTPUT_VARIABLE created
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  # A name for these contents and no others, in the namespace of names that are URLs.
  string(UUID uuid NAMESPACE 6ba7b811-9dad-11d1-80b4-00c04fd430c8 TYPE SHA1 NAME "${created}${packages}")
  set(bill "{\"spdxVersion\": \"SPDX-2.3\", \"dataLicense\": \"CC0-1.0\", \"SPDXID\": \"SPDXRef-DOCUMENT\",
    \"name\": \"${ours} ${our_version}\", \"documentNamespace\": \"urn:uuid:${uuid}\", \"creationInfo\": {\"created\": \"${created}\",
    \"creators\": [\"Organization: The Tallyfin 99 authors\", \"Tool: CMake\"]}}")
  # Lays the text out, and ends with an error where it isn't JSON.
  string(JSON bill SET "${bill}" packages "[${packages}]")
  string(JSON bill SET "${bill}" relationships "[${relationships}]")
  file(WRITE ${file} "${bill}\n")
endfunction()

if(CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
  string(REPLACE runtime "${runtime_of_modules}" PARTS "${PARTS}")
  tallyfin_bill_of_materials(${FILE} ${NAME} ${VERSION} ${PARTS})
endif()

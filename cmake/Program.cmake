# The window program as each system wants it: a plain program with everything beside it (see data/CMakeLists.txt), a
# bundle on macOS, a program with its icon and Qt's libraries on Windows. Included where the target `sumlet` is made.
set(dataFolder ${PROJECT_SOURCE_DIR}/data)

if(APPLE)
  target_sources(sumlet PRIVATE ${dataFolder}/macos/sumlet.icns)
  set_source_files_properties(${dataFolder}/macos/sumlet.icns PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
  set_target_properties(sumlet PROPERTIES
    OUTPUT_NAME Sumlet
    MACOSX_BUNDLE_INFO_PLIST ${dataFolder}/macos/Info.plist.in
    MACOSX_BUNDLE_GUI_IDENTIFIER com.fernhill.sumlet
    MACOSX_BUNDLE_BUNDLE_NAME Sumlet
    MACOSX_BUNDLE_BUNDLE_VERSION ${PROJECT_VERSION}
    MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION}
    MACOSX_BUNDLE_ICON_FILE sumlet.icns
    MACOSX_BUNDLE_COPYRIGHT "© 2026 The Sumlet developers")
elseif(WIN32)
  enable_language(RC)
  configure_file(${dataFolder}/windows/sumlet.rc.in sumlet.rc @ONLY)
  target_sources(sumlet PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/sumlet.rc)
endif()

# Libraries: on Windows all but those of the system go beside the programs; on macOS Qt's tool puts them into the bundle;
# elsewhere the system's packages bring them.
set(libraries)
if(WIN32 AND NOT CMAKE_CROSSCOMPILING)
  file(TO_CMAKE_PATH "$ENV{PATH}" searched)
  set(libraries RUNTIME_DEPENDENCIES
    PRE_EXCLUDE_REGEXES "^api-ms-" "^ext-ms-"
    POST_EXCLUDE_REGEXES "/[Ss][Yy][Ss][Tt][Ee][Mm]32/"
    DIRECTORIES ${searched})
endif()
install(TARGETS sumlet ${libraries} BUNDLE DESTINATION .)

# Qt's plugins, which no library names.
if(APPLE OR WIN32)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Core)
  qt_generate_deploy_app_script(TARGET sumlet FILENAME_VARIABLE deployScript NO_UNSUPPORTED_PLATFORM_ERROR)
  install(SCRIPT ${deployScript})
endif()

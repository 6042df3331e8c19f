# prismo_bundle_host(PROGRAM): lets PROGRAM load settings bundles. A bundle contains no framework classes, so the program
# contains all of them, even those it does not use, and exports them to the bundle. The program must not link the module,
# because those classes come with the bundle. It must be one level below the top of the build tree, so that it finds the
# base layer.
function(prismo_bundle_host program)
    set(frameworks prismo-text prismo-png prismo-foundation prismo-uikit prismo-preferences prismo-applist prismo-swatchkit
        prismo-social)
    # Named by file and before the targets, so that every symbol is already there when the linker gets to the libraries
    # that need it, and nothing is linked twice.
    list(TRANSFORM frameworks REPLACE "(.+)" "$<TARGET_FILE:\\1>" OUTPUT_VARIABLE archives)
    target_link_libraries(${program} PRIVATE "$<LINK_LIBRARY:WHOLE_ARCHIVE,${archives}>" ${frameworks})
    set_target_properties(${program} PROPERTIES ENABLE_EXPORTS ON)
    add_dependencies(${program} Prismo2Prefs)
endfunction()

# prismo_bundle_host(PROGRAM): makes it a program that can load settings bundles. They bring no framework classes of
# their own, so it holds all of them, used by itself or not, and exports them to what it loads. It must not link the
# module, whose classes come with the bundle, and stands one level below the top of the build tree, from where the base
# layer is found.
function(prismo_bundle_host program)
    set(frameworks prismo-text prismo-png prismo-foundation prismo-uikit prismo-preferences prismo-applist prismo-swatchkit
        prismo-social)
    # By their files, and before the targets: what these and other libraries need of the frameworks is there already, and
    # is not taken from them once more.
    list(TRANSFORM frameworks REPLACE "(.+)" "$<TARGET_FILE:\\1>" OUTPUT_VARIABLE archives)
    target_link_libraries(${program} PRIVATE "$<LINK_LIBRARY:WHOLE_ARCHIVE,${archives}>" ${frameworks})
    set_target_properties(${program} PROPERTIES ENABLE_EXPORTS ON)
    add_dependencies(${program} Prismo2Prefs)
endfunction()

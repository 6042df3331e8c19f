# prismo_bundle_host(PROGRAM): makes it a program that can load settings bundles. They bring no framework classes of
# their own, so it holds all of them, used by itself or not, and exports them to what it loads. It must not link the
# module, whose classes come with the bundle, and stands one level below the top of the build tree, from where the base
# layer is found.
function(prismo_bundle_host program)
    set(frameworks prismo-text prismo-png prismo-foundation prismo-uikit prismo-preferences prismo-applist prismo-swatchkit prismo-social)
    target_link_libraries(${program} PRIVATE ${frameworks})
    # As options, since those come first: what other libraries need of the frameworks is there already, and is not taken
    # from them once more.
    foreach(framework IN LISTS frameworks)
        list(APPEND archives "$<TARGET_FILE:${framework}>")
    endforeach()
    target_link_options(${program} PRIVATE LINKER:--whole-archive ${archives} LINKER:--no-whole-archive)
    set_target_properties(${program} PROPERTIES ENABLE_EXPORTS ON)
    add_dependencies(${program} Prismo2Prefs)
endfunction()

# vantle_icon(size picture)
# Renders the application's icon into a picture of this width, in the format that render-icon chooses for its name. Up to
# 24 pixels, a simpler drawing is used, which is clearer.
function(vantle_icon size picture)
    set(drawing ${PROJECT_SOURCE_DIR}/packaging/icon/vantle-settings.svg)
    if(size LESS_EQUAL 24)
        set(drawing ${PROJECT_SOURCE_DIR}/packaging/icon/vantle-settings-small.svg)
    endif()
    add_custom_command(OUTPUT ${picture}
        COMMAND render-icon ${drawing} 0 ${size} ${picture}
        DEPENDS render-icon ${drawing}
        VERBATIM)
endfunction()

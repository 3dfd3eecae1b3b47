# The icon of a program for Windows, made of the picture that desktops of Linux show for it.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(IMAGEMAGICK_CONVERT convert REQUIRED)

# qbtd_program_icon(PICTURE ICON)
function(qbtd_program_icon picture icon)
  set(sizes "")
  set(draw "")
  # Those of lists, title bars and desktops, on monitors of usual and of high resolution.
  foreach(pixels 16 20 24 32 40 48 64 256)
    list(APPEND sizes ${icon}.${pixels}.png)
    list(APPEND draw
      COMMAND ${RSVG_CONVERT} --width ${pixels} --height ${pixels} --output ${icon}.${pixels}.png
        ${picture})
  endforeach()
  add_custom_command(OUTPUT ${icon}
    ${draw}
    COMMAND ${IMAGEMAGICK_CONVERT} ${sizes} ${icon}
    DEPENDS ${picture}
    BYPRODUCTS ${sizes}
    VERBATIM)
endfunction()

# Project-wide compile settings: warnings are errors, Qt without its keyword macros
# (glib's `signals` clashes with Qt's), optional sanitizers.
add_compile_definitions(QT_NO_KEYWORDS)
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror)

if(VISTREL_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

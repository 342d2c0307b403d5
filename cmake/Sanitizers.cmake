# Address and undefined-behaviour sanitizers for everything below, so that libraries and programs agree.
if(KXVSGRID_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

if(PELRATH_SANITIZE)
    add_compile_options(-fsanitize=${PELRATH_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${PELRATH_SANITIZE})
endif()

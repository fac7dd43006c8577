# SPDX-License-Identifier: LicenseRef-ORVALD
# The peer is a header library whose own code has warnings; it is not built without it.
find_path(CGAL_HEADERS CGAL/Arr_circle_segment_traits_2.h)
if(CGAL_HEADERS)
    kex_bench(intersection_bench LIBS kex_base orvald_host gmp mpfr SOURCES intersection_bench.cpp)
endif()
if(TARGET intersection_bench)
    target_include_directories(intersection_bench SYSTEM PRIVATE ${CGAL_HEADERS})
    target_compile_options(intersection_bench PRIVATE -frounding-math -Wno-error -w)
endif()

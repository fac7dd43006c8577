# SPDX-License-Identifier: LicenseRef-ORVALD
kex_bench(string_bench LIBS orvald_host SOURCES string_bench.cpp)
if(TARGET string_bench)
    add_dependencies(string_bench kex_main)
endif()

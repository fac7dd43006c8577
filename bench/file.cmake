# SPDX-License-Identifier: LicenseRef-ORVALD
kex_bench(file_bench LIBS orvald_host SOURCES file_bench.cpp)
if(TARGET file_bench)
    add_dependencies(file_bench kex_main)
endif()

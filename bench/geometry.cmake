# SPDX-License-Identifier: LicenseRef-ORVALD
kex_bench(geometry_bench LIBS kex_base orvald_host SOURCES geometry_bench.cpp geometry_peers.cpp)
if(TARGET geometry_bench)
    add_dependencies(geometry_bench kex_main)
endif()

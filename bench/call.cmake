# SPDX-License-Identifier: LicenseRef-ORVALD
kex_bench(call_bench LIBS orvald_host SOURCES call_bench.cpp)
if(TARGET call_bench)
    add_dependencies(call_bench kex_main)
endif()

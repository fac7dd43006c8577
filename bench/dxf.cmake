# SPDX-License-Identifier: LicenseRef-ORVALD
kex_bench(dxf_bench LIBS orvald_dxf SOURCES dxf_bench.cpp)

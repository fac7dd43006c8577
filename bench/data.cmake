# SPDX-License-Identifier: LicenseRef-ORVALD
kex_bench(data_bench LIBS kex_obj orvald_host SOURCES data_bench.cpp)

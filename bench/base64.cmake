# SPDX-License-Identifier: LicenseRef-ORVALD
kex_bench(base64_bench LIBS kex_base SOURCES base64_bench.cpp)

# SPDX-License-Identifier: LicenseRef-ORVALD
# The bare evaluator as a program, for comparisons with other interpreters (lisp_against_others.py).
add_executable(lisp_run ${PROJECT_SOURCE_DIR}/bench/lisp_run.cpp)
target_link_libraries(lisp_run PRIVATE kex_flags orvald_lisp)

# SPDX-License-Identifier: LicenseRef-ORVALD
# The evaluator with a drawing as a program, for comparisons with other interpreters
# (lisp_against_others.py).
add_executable(lisp_run ${PROJECT_SOURCE_DIR}/bench/lisp_run.cpp)
target_link_libraries(lisp_run PRIVATE kex_flags orvald_documents)
target_include_directories(lisp_run PRIVATE ${PROJECT_SOURCE_DIR}/host/documents)

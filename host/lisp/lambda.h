// SPDX-License-Identifier: LicenseRef-ORVALD
// A function of the program with its compiled code. Everything the code points to is reachable from
// the source form or from `constants`, so that marking these two keeps the code sound.
#pragma once

#include "node.h"
#include "objects.h"

#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>
#include <vector>

namespace orvald::lisp {

/// Memory of one function's nodes, given back all at once.
class NodeArena
{
public:
    template <class T>
    T* make(std::size_t extraBytes = 0)
    {
        static_assert(std::is_trivially_destructible_v<T> && alignof(T) <= kAlign);
        return new (take(sizeof(T) + extraBytes)) T();
    }
    std::size_t bytes() const { return bytes_; }

private:
    static constexpr std::size_t kAlign = 8;
    static constexpr std::size_t kChunk = 480;

    void* take(std::size_t size)
    {
        size = (size + kAlign - 1) & ~(kAlign - 1);
        if (size > left_) {
            const std::size_t chunk = size > kChunk ? size : kChunk;
            chunks_.push_back(std::make_unique<std::byte[]>(chunk));
            next_ = chunks_.back().get();
            left_ = chunk;
            bytes_ += chunk;
        }
        void* place = next_;
        next_ += size;
        left_ -= size;
        return place;
    }

    std::vector<std::unique_ptr<std::byte[]>> chunks_;
    std::byte* next_ = nullptr;
    std::size_t left_ = 0;
    std::size_t bytes_ = 0;
};

/// A defun, a lambda, or (with no parameters) a form handed to eval.
struct Lambda : Object
{
    Lambda() : Object(Kind::usubr) { variables.owner = this; }

    const Node* body = nullptr; // the node `compileFirst` until the first call
    Variables variables;        // parameters, then locals
    int parameterCount = 0;

    Symbol* name = nullptr; // null for a lambda
    Value parameterList;    // source
    Value bodyForms;        // source
    Node compileFirst{};
    std::vector<Symbol*> symbols;
    std::vector<Value> constants; // functions written inside this one
    NodeArena arena;
    std::size_t chargedBytes = 0; // of the arena, on the heap's account
};

} // namespace orvald::lisp

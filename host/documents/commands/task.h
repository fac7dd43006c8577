// SPDX-License-Identifier: LicenseRef-ORVALD
// A command as a coroutine: it runs until it wants input, and goes on where it stood when the input
// is there, however much later that is. A task may await another one; it starts when it is awaited
// or started and is over with its owner.
//
// An object with a destructor that is passed to a task has a name: gcc 12 destroys a temporary in
// the call that is awaited twice.
#pragma once

#include <coroutine>
#include <exception>
#include <optional>
#include <utility>

namespace orvald {

template <class T>
class Task;

namespace task_detail {

/// What every task has, whatever its result.
struct Promise
{
    std::coroutine_handle<> awaiting; // goes on when this task is over
    std::exception_ptr failure;

    /// Hands over to whoever awaits the task.
    struct Final
    {
        bool await_ready() noexcept { return false; }
        template <class P>
        std::coroutine_handle<> await_suspend(std::coroutine_handle<P> ended) noexcept
        {
            const std::coroutine_handle<> next = ended.promise().awaiting;
            return next ? next : std::noop_coroutine();
        }
        void await_resume() noexcept {}
    };
    std::suspend_always initial_suspend() noexcept { return {}; }
    Final final_suspend() noexcept { return {}; }
    void unhandled_exception() { failure = std::current_exception(); }
};

template <class T>
struct PromiseOf : Promise
{
    std::optional<T> result;
    Task<T> get_return_object();
    void return_value(T value) { result = std::move(value); }
    T take()
    {
        if (failure) std::rethrow_exception(failure);
        return *std::move(result);
    }
};

template <>
struct PromiseOf<void> : Promise
{
    Task<void> get_return_object();
    void return_void() {}
    void take()
    {
        if (failure) std::rethrow_exception(failure);
    }
};

} // namespace task_detail

template <class T = void>
class [[nodiscard]] Task
{
public:
    using promise_type = task_detail::PromiseOf<T>;
    using Handle = std::coroutine_handle<promise_type>;

    explicit Task(Handle handle) : handle_(handle) {}
    Task(Task&& other) noexcept : handle_(std::exchange(other.handle_, {})) {}
    Task& operator=(Task&&) = delete;
    Task(const Task&) = delete;
    ~Task()
    {
        if (handle_) handle_.destroy();
    }

    /// Runs up to its first wait for input, or to its end.
    void start() { handle_.resume(); }
    bool done() const { return handle_.done(); }
    /// The result, or the error that ended it, of a task that is done.
    T take() { return handle_.promise().take(); }

    bool await_ready() const noexcept { return false; }
    std::coroutine_handle<> await_suspend(std::coroutine_handle<> awaiting) noexcept
    {
        handle_.promise().awaiting = awaiting;
        return handle_;
    }
    T await_resume() { return handle_.promise().take(); }

private:
    Handle handle_;
};

namespace task_detail {

template <class T>
Task<T> PromiseOf<T>::get_return_object()
{
    return Task<T>(Task<T>::Handle::from_promise(*this));
}
inline Task<void> PromiseOf<void>::get_return_object()
{
    return Task<void>(Task<void>::Handle::from_promise(*this));
}

} // namespace task_detail

} // namespace orvald

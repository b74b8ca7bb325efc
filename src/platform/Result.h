#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>

namespace velmo
{

/// Why something did not work: a number (see ErrorCode.h) and a sentence for the log or for a person.
struct Error
{
    std::int32_t code = 0;
    std::string description;
};

/// The value of a step that succeeds, for steps that yield none.
struct Done
{};

/// Either a value or the Error that stands in its place.
template <typename T>
class [[nodiscard]] Result
{
  public:
    Result(T value) : m_content(std::move(value)) {}
    Result(Error error) : m_content(std::move(error)) {}

    [[nodiscard]] bool Ok() const { return std::holds_alternative<T>(m_content); }
    explicit operator bool() const { return Ok(); }

    /// The value. Only when Ok().
    [[nodiscard]] const T& Value() const& { return std::get<T>(m_content); }
    [[nodiscard]] T&& Value() && { return std::get<T>(std::move(m_content)); }

    /// The error. Only when not Ok().
    [[nodiscard]] const Error& Failure() const { return std::get<Error>(m_content); }

    /// The next step: what @a next makes of the value (a Result, or a value of one), or the error, past
    /// it. `Open(path).Then(&ReadHeader)` fails with the first error of the two.
    template <typename Next>
    [[nodiscard]] auto Then(Next&& next) const&
    {
        return Continued(*this, std::forward<Next>(next));
    }

    template <typename Next>
    [[nodiscard]] auto Then(Next&& next) &&
    {
        return Continued(std::move(*this), std::forward<Next>(next));
    }

  private:
    template <typename U>
    static Result<U> Wrapped(Result<U> result);
    template <typename U>
    static Result<U> Wrapped(U value);

    template <typename Self, typename Next>
    static auto Continued(Self&& self, Next&& next)
    {
        using Value = decltype(std::forward<Self>(self).Value());
        using Outcome = decltype(Wrapped(std::declval<std::invoke_result_t<Next, Value>>()));
        return self ? Outcome(std::forward<Next>(next)(std::forward<Self>(self).Value()))
                    : Outcome(self.Failure());
    }

    std::variant<T, Error> m_content;
};

} // namespace velmo

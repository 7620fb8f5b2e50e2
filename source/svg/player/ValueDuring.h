// A variable that has another value for the span of a scope, and its old one again after it.
#pragma once

namespace svg {

template <typename T>
class ValueDuring {
public:
    ValueDuring(T& variable, T value) : m_variable(variable), m_before(variable) { m_variable = value; }
    ~ValueDuring() { m_variable = m_before; }
    ValueDuring(const ValueDuring&) = delete;
    ValueDuring& operator=(const ValueDuring&) = delete;

private:
    T& m_variable;
    T m_before;
};

} // namespace svg

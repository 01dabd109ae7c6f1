#include "transforms/options/parameter.h"

#include <utility>

void Parameter::swapInput(Parameter &other)
{
    std::swap(m_node, other.m_node);
    std::swap(m_value, other.m_value);
    std::swap(m_memory, other.m_memory);
    std::swap(m_text, other.m_text);
    std::swap(m_knownValue, other.m_knownValue);
}

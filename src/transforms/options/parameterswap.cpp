#include "transforms/options/parameter.h"

#include <utility>

void Parameter::swapInput(Parameter &other)
{
    std::swap(m_node, other.m_node);
    std::swap(m_value, other.m_value);
    std::swap(m_columnNames, other.m_columnNames);
    std::swap(m_knownText, other.m_knownText);
    std::swap(m_knownValue, other.m_knownValue);
    std::swap(m_hasDeferredText, other.m_hasDeferredText);
    std::swap(m_deferredText, other.m_deferredText);
    std::swap(m_deferredVersion, other.m_deferredVersion);
}

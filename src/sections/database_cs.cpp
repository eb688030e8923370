#include "sections/database_cs.h"

DatabaseCS g_DatabaseCS;

void DatabaseCS::StoreScales(const SymbolLook& symbol, const SymbolLook& line)
{
    m_dSymbolScaleX = symbol.m_dScaleX;
    m_dSymbolScaleY = symbol.m_dScaleY;
    m_dSymbolRotate = symbol.m_dRotation;
    m_dLineScaleX = line.m_dScaleX;
    m_dLineScaleY = line.m_dScaleY;
    m_dLineRotate = line.m_dRotation;
}

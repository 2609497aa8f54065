#include "languageclient/records/positions.h"

namespace Halvorin::LSP {

void LSPRange::setStartLine(int line)
{
    LSPPosition position = start();
    position.setLine(line);
    setStart(position);
}

void LSPRange::setStartCharacter(int character)
{
    LSPPosition position = start();
    position.setCharacter(character);
    setStart(position);
}

void LSPRange::setEndLine(int line)
{
    LSPPosition position = end();
    position.setLine(line);
    setEnd(position);
}

void LSPRange::setEndCharacter(int character)
{
    LSPPosition position = end();
    position.setCharacter(character);
    setEnd(position);
}

} // namespace Halvorin::LSP

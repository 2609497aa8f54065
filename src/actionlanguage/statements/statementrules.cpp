#include "actionlanguage/statements/statementrules.h"

#include "actionlanguage/statements/compoundstatementrule.h"
#include "actionlanguage/statements/dowhilerule.h"
#include "actionlanguage/statements/forrule.h"
#include "actionlanguage/statements/ifrule.h"
#include "actionlanguage/statements/nullstatementrule.h"
#include "actionlanguage/statements/whilerule.h"

std::vector<StatementRule> constructStatementRules()
{
    std::vector<StatementRule> rules;
    rules.push_back(std::make_unique<ExpressionStatementRule>());
    rules.push_back(std::make_unique<SimpleDeclarationRule>());
    rules.push_back(std::make_unique<CompoundStatementRule>());
    rules.push_back(std::make_unique<IfRule>());
    rules.push_back(std::make_unique<ForRule>());
    rules.push_back(std::make_unique<WhileRule>());
    rules.push_back(std::make_unique<DoWhileRule>());
    rules.push_back(std::make_unique<NullStatementRule>());
    return rules;
}

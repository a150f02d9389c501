// A plugin that restricts clang-tidy's checks to this project's declarations.
//
// clang-tidy 14 runs every check on system headers as well and then discards the
// findings; no option prevents that. The plugin changes no result, only the time.
// Processor time per file, with and without it:
//
//   render/draw_svg.cpp                0.6 s    2.6 s
//   source/scanner.cpp                 1.9 s    5.5 s
//   check/wires.cpp                    2.6 s    8.2 s
//   cli/draw.cpp                       3.0 s   10.2 s
//   tests/check/wiring_rules_test.cpp  2.7 s    9.8 s
//
// Extrapolated to all files, that is 4 minutes on two processors instead of 15.
// Fewer checks do not help enough: the cost is spread evenly over them, and
// parsing alone takes 2.9 s for the last file.

#include <memory>
#include <string>
#include <vector>

#include "clang/AST/ASTConsumer.h"
#include "clang/AST/ASTContext.h"
#include "clang/Basic/SourceManager.h"
#include "clang/Frontend/FrontendPluginRegistry.h"

namespace {

class ScopeSetter : public clang::ASTConsumer {
public:
    void HandleTranslationUnit(clang::ASTContext& context) override {
        const clang::SourceManager& sources = context.getSourceManager();
        std::vector<clang::Decl*> ours;
        for (clang::Decl* decl : context.getTranslationUnitDecl()->decls()) {
            if (!sources.isInSystemHeader(sources.getExpansionLoc(decl->getLocation()))) {
                ours.push_back(decl);
            }
        }
        context.setTraversalScope(ours);
    }
};

class ScopeAction : public clang::PluginASTAction {
protected:
    std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance&,
                                                          llvm::StringRef) override {
        return std::make_unique<ScopeSetter>();
    }
    bool ParseArgs(const clang::CompilerInstance&, const std::vector<std::string>&) override {
        return true;
    }
    // Before the checks, and without being named on the command line.
    ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<ScopeAction> ADDED("project-scope",
                                                            "checks see the project alone");

}  // namespace

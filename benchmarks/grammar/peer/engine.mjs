// Another TextMate engine over our grammar: loads it, and gives the tokens of a line the way ours words them.
import { createRequire } from "node:module";
import { readFileSync } from "node:fs";
import { fileURLToPath } from "node:url";
import { dirname, join } from "node:path";

const require = createRequire(import.meta.url);
const oniguruma = require("vscode-oniguruma");
const textmate = require("vscode-textmate");

const here = dirname(fileURLToPath(import.meta.url));
export const ourGrammar = join(here, "../../../resources/grammars/python.tmLanguage.json");

/** The grammar of a file, ready to tokenise. `change` may rewrite the grammar's object before it is loaded. */
export async function loadGrammar(path, change = (grammar) => grammar) {
    await oniguruma.loadWASM(readFileSync(require.resolve("vscode-oniguruma/release/onig.wasm")));
    const raw = change(JSON.parse(readFileSync(path, "utf8")));
    const registry = new textmate.Registry({
        onigLib: Promise.resolve({
            createOnigScanner: (sources) => new oniguruma.OnigScanner(sources),
            createOnigString: (text) => new oniguruma.OnigString(text),
        }),
        loadGrammar: async (scopeName) => (scopeName === raw.scopeName ? raw : null),
    });
    return registry.loadGrammar(raw.scopeName);
}

/** The lines of a file, without their ends. */
export function linesOf(path) {
    const text = readFileSync(path, "utf8").replace(/^\uFEFF/, "");
    const lines = text.split(/\r\n|\r|\n/);
    if (lines.at(-1) === "") lines.pop();
    return lines;
}

/** One line: its tokens as the engine gives them, and the state that the next line starts from. */
export function tokeniseLine(grammar, line, state) {
    const result = grammar.tokenizeLine(line, state ?? textmate.INITIAL);
    return { tokens: result.tokens, state: result.ruleStack };
}

/** Tokens of the text without its line end, neighbours of equal scopes joined: what two engines can agree on. */
export function plainTokens(line, tokens) {
    const plain = [];
    for (const { startIndex, endIndex, scopes } of tokens) {
        const start = Math.min(startIndex, line.length);
        const length = Math.min(endIndex, line.length) - start;
        if (length <= 0) continue;
        const last = plain.at(-1);
        if (last?.scopes.join() === scopes.join()) last.length += length;
        else plain.push({ start, length, scopes });
    }
    return plain;
}

// node tokenise.mjs [--grammar FILE] MODE FILE...
//   --json    tokens, a line of JSON per source line; the slowest line of each file on stderr
//   --time    lines and bytes per second, cold and warm, and the slowest line
//   --rules   "FILE RULE" for each rule of the repository that a file reaches
import { statSync } from "node:fs";
import { linesOf, loadGrammar, ourGrammar, plainTokens, tokeniseLine } from "./engine.mjs";

/** Calls `visit(line, tokens)` for each line, and gives the slowest line as [milliseconds, number]. */
function tokeniseFile(grammar, lines, visit = () => {}) {
    let state = null;
    let slowest = [0, 0];
    lines.forEach((line, index) => {
        const before = performance.now();
        const result = tokeniseLine(grammar, line, state);
        const spent = performance.now() - before;
        if (spent > slowest[0]) slowest = [spent, index + 1];
        state = result.state;
        visit(line, result.tokens);
    });
    return slowest;
}

async function printTokens(path, files) {
    const grammar = await loadGrammar(path);
    for (const file of files) {
        const out = [];
        const [spent, number] = tokeniseFile(grammar, linesOf(file), (line, tokens) =>
            out.push(JSON.stringify(plainTokens(line, tokens)) + "\n"));
        process.stdout.write(out.join(""));
        console.error(`slowest line ${file}:${number}, ${spent.toFixed(1)} ms`);
    }
}

async function printSpeed(path, files) {
    const grammar = await loadGrammar(path);
    const texts = files.map((file) => ({ file, lines: linesOf(file) }));
    const lineCount = texts.reduce((sum, { lines }) => sum + lines.length, 0);
    const megabytes = files.reduce((sum, file) => sum + statSync(file).size, 0) / 1e6;
    for (const run of ["cold", "warm"]) {
        let slowest = { spent: 0 };
        const before = performance.now();
        for (const { file, lines } of texts) {
            const [spent, number] = tokeniseFile(grammar, lines);
            if (spent > slowest.spent) slowest = { spent, place: `${file}:${number}` };
        }
        const seconds = (performance.now() - before) / 1000;
        console.log(`${run}: ${files.length} files, ${lineCount} lines, ${megabytes.toFixed(2)} MB in ` +
            `${seconds.toFixed(2)} s: ${Math.round(lineCount / seconds)} lines/s, ` +
            `${(megabytes / seconds).toFixed(2)} MB/s; slowest line ${slowest.place}, ${slowest.spent.toFixed(1)} ms`);
    }
}

/** Gives each rule that can match a second scope with its name in the repository. */
function markRules(grammar) {
    for (const [key, rule] of Object.entries(grammar.repository))
        if (rule.match || rule.begin) rule.name = `${rule.name ?? ""} rule:${key}`.trim();
    return grammar;
}

async function printRules(path, files) {
    const grammar = await loadGrammar(path, markRules);
    for (const file of files) {
        const reached = new Set();
        tokeniseFile(grammar, linesOf(file), (line, tokens) => {
            for (const scope of tokens.flatMap((token) => token.scopes))
                if (scope.startsWith("rule:")) reached.add(scope.slice("rule:".length));
        });
        for (const rule of [...reached].sort()) console.log(`${file} ${rule}`);
    }
}

const modes = { "--json": printTokens, "--time": printSpeed, "--rules": printRules };
const words = process.argv.slice(2);
const path = words[0] === "--grammar" ? words.splice(0, 2)[1] : ourGrammar;
const mode = modes[words.shift()];
if (!mode || words.length === 0) {
    console.error("usage: node tokenise.mjs [--grammar FILE] --json|--time|--rules FILE...");
    process.exit(2);
}
await mode(path, words);

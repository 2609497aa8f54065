// node serve.mjs FILE...
//   Reads the files and says "ready"; then, for each line "warm" or "cold" that comes in, tokenises all of them and says
//   "done". "cold" loads the grammar anew before.
import { createInterface } from "node:readline";
import { linesOf, loadGrammar, ourGrammar, tokeniseLine } from "./engine.mjs";

const texts = process.argv.slice(2).map(linesOf);
let grammar = await loadGrammar(ourGrammar);
console.log("ready");
for await (const how of createInterface({ input: process.stdin })) {
    if (how === "cold") grammar = await loadGrammar(ourGrammar);
    for (const lines of texts) {
        let state = null;
        for (const line of lines) state = tokeniseLine(grammar, line, state).state;
    }
    console.log("done");
}

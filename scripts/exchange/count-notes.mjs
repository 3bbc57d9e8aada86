// SPDX-License-Identifier: MIT
// Reads MusicXML files with verovio and OpenSheetMusicDisplay and counts what they hold:
//   node count-notes.mjs FILE...
// prints a line of JSON for each: the notes and measures that each program knows, null for a file
// that it does not open.
import { readFileSync } from 'node:fs';
import { JSDOM } from 'jsdom';
import createVerovioModule from 'verovio/wasm';
import { VerovioToolkit } from 'verovio/esm';

const dom = new JSDOM('<!DOCTYPE html><div id="score"></div>', { pretendToBeVisual: true });
for (const name of ['window', 'document', 'DOMParser', 'Node', 'Element', 'HTMLElement',
    'XMLHttpRequest', 'SVGElement'])
    globalThis[name] = name === 'window' ? dom.window : dom.window[name];
const { default: osmdModule } = await import('opensheetmusicdisplay');
const toolkit = new VerovioToolkit(await createVerovioModule());

function quietly(work) {
    const { log, warn, error } = console;
    console.log = console.warn = console.error = () => {};
    const restore = () => Object.assign(console, { log, warn, error });
    return Promise.resolve().then(work).catch(() => null).finally(restore);
}

function withVerovio(xml) {
    toolkit.setOptions({ breaks: 'none' });
    if (!toolkit.loadData(xml))
        return null;
    const mei = toolkit.getMEI({ removeIds: true });
    const count = (pattern) => (mei.match(pattern) ?? []).length;
    return { notes: count(/<note[\s/>]/g), measures: count(/<measure[\s/>]/g) };
}

async function withOsmd(xml) {
    const osmd = new osmdModule.OpenSheetMusicDisplay(document.getElementById('score'),
        { autoResize: false, backend: 'svg' });
    await osmd.load(xml);
    let notes = 0;
    for (const measure of osmd.Sheet.SourceMeasures)
        for (const container of measure.VerticalSourceStaffEntryContainers)
            for (const entry of container.StaffEntries)
                for (const voice of entry?.VoiceEntries ?? [])
                    notes += voice.Notes.filter((note) => !note.isRest()).length;
    return { notes, measures: osmd.Sheet.SourceMeasures.length };
}

for (const file of process.argv.slice(2)) {
    const xml = readFileSync(file, 'utf8');
    const verovio = await quietly(() => withVerovio(xml));
    const osmd = await quietly(() => withOsmd(xml));
    console.log(JSON.stringify({ file, verovio, osmd }));
}
process.exit(0);

// One fill of a document: it asks for the values of the inputs that it shows, and looks again for some time, since many
// inputs come only after others have been filled.

// Milliseconds between the looks of one fill, which ends on the C++ side a little later.
const kPauses = [0, 50, 200, 500, 800, 1000];
// A page with more elements or inputs than this is not looked at any further.
const kElements = 60000, kRoots = 1000, kExamined = 4000, kOffered = 2000;
// Characters of one request: escaped, nine times as many at worst, and the engine takes two million.
const kRequest = 60000, kInputsOfRequest = 200;
const kSliceMs = 40;
// A huge document is looked at from its beginning for so long, and what comes after that is left out.
const kLookMs = 800;

const kFrames = new Set(['iframe', 'frame', 'object', 'embed']);
const frameWindows = new Map([['iframe', getter(HTMLIFrameElement, 'contentWindow')],
    ['frame', getter(HTMLFrameElement, 'contentWindow')], ['object', getter(HTMLObjectElement, 'contentWindow')]]);
const frameDocument = getter(HTMLIFrameElement, 'contentDocument');

// --- frames ---

/** The way from the page to a window: "0.2" is the third frame of its first one; "?" for one in no list of frames. */
const pathOf = view => {
    let path = '';
    for (; view !== window.top; view = view.parent) {
        const siblings = view.parent;
        let at = 0;
        while (at < siblings.length && at < 500 && siblings[at] !== view)
            ++at;
        if (at >= siblings.length || siblings[at] !== view)
            return '?';
        path = at + (path && '.' + path);
    }
    return path;
};

let isStale = true, framesMoved = true;
const note = records => {
    isStale = isStale || records.length > 0;
    framesMoved = framesMoved || records.length > 2000 || records.some(record =>
        [...record.addedNodes, ...record.removedNodes].some(node => nodeType(node) === 1 &&
            (kFrames.has(localName(node)) || findIn(node, 'iframe,frame,object,embed'))));
};
const watch = new MutationObserver(note);
let watched = new WeakSet;

/** The document of a frame in which this script does not run, as in empty and written ones. Only this one reaches it. */
const orphan = (frame, view) => {
    const inner = localName(frame) === 'iframe' ? frameDocument(frame) : null;
    return inner && !(view.corvaneFill && view.corvaneFill.begin) ? inner : null;
};

/** All inputs of the document and of what belongs to it, and the paths of the frames that the user can see. */
const scan = veil => {
    const found = { inputs: [], shown: [], frames: 0, looks: newLooks(veil) };
    let elements = 0, roots = 0;
    const visit = (root, depth) => {
        if (depth > 30 || ++roots > kRoots)
            return;
        veil.add(root);
        if (!watched.has(root)) {
            watched.add(root);
            watch.observe(root, { childList: true, subtree: true, attributes: true });
        }
        for (const element of all(root, '*')) {
            if (++elements > kElements)
                return;
            const name = localName(element);
            if ((name === 'input' || name === 'select' || name === 'textarea') && found.inputs.length < kExamined)
                found.inputs.push(element);
            else if (frameWindows.has(name) && ++found.frames <= 200 && frameShows(element, found.looks))
                see(element, name, depth);
            const shadow = shadowOf(element);
            if (shadow)
                visit(shadow, depth + 1);
        }
    };
    const see = (frame, name, depth) => {
        const view = frameWindows.get(name)(frame);
        const path = view ? pathOf(view) : '?';
        if (path !== '?')
            found.shown.push(path);
        const inner = orphan(frame, view);
        if (inner)
            visit(inner, depth + 1);
    };
    visit(document, 0);
    return found;
};

// --- one fill ---

let current = '', offered = new WeakMap, given = new Map, offers = 0, frames = 0, lastShown = [];
// The program keeps the time: documents without scripts have no timers.
const pause = milliseconds => request('pause', { k: current, n: milliseconds });

/** A choice list is another one when its alternatives have changed. */
const mark = input => {
    if (!isSelect(input))
        return 'input';
    const options = input.options, last = options.length - 1;
    return options.length + '|' + (last < 0 ? '' : short(options[0].text) + '|' + short(options[last].text));
};

/** Of the inputs, those that may be filled and have not been asked about. */
const choose = async (inputs, veil, isCurrent) => {
    const chosen = [];
    const end = performance.now() + kLookMs;
    let groups = new Map, looks = newLooks(veil), until = performance.now() + kSliceMs;
    for (const input of inputs) {
        if (performance.now() > end)
            break;
        if (performance.now() > until) {
            veil.drop();
            await pause(0);
            if (!isCurrent())
                return [];
            groups = new Map;
            looks = newLooks(veil);
            // In a large document lifting the veil takes longer than looking at many inputs.
            const start = performance.now();
            veil.lift();
            reach(input, looks, 1);
            until = performance.now() + Math.max(kSliceMs, 5 * (performance.now() - start));
        }
        if (offers + chosen.length >= kOffered)
            break;
        if (input.isConnected && isWanted(input) && offered.get(input) !== mark(input) && isEmpty(input, groups) &&
            inputShows(input, looks) && isInked(input, looks))
            chosen.push(input);
    }
    return chosen;
};

/**
 * Asks for the values of these inputs, in as many requests as it takes; the last one is answered with all of them, and has
 * what `report` gives then.
 */
const ask = async (fill, inputs, report) => {
    const labels = new Map;
    let part = [], size = 0;
    const pass = isLast => {
        const rest = isLast ? JSON.stringify(report()).replace('{', ',') : '}';
        return request('inputs', { k: fill, d: '{"inputs":[' + part.join(',') + ']' + rest });
    };
    for (const input of inputs) {
        offered.set(input, mark(input));
        given.set(++offers, input);
        const told = JSON.stringify(describe(input, offers, labels));
        if (size + told.length > kRequest || part.length >= kInputsOfRequest) {
            if (await pass(false) === null)
                return null;
            part = [];
            size = 0;
        }
        part.push(told);
        size += told.length;
    }
    const answer = await pass(true);
    return answer === null ? null : JSON.parse(answer);
};

const putAll = async (answers, isCurrent) => {
    const groups = { get: root => chosenGroups(root), has: () => true };
    let count = 0, until = performance.now() + kSliceMs;
    for (const [number, value] of answers) {
        if (performance.now() > until) {
            await pause(0);
            if (!isCurrent())
                break;
            until = performance.now() + kSliceMs;
        }
        const input = given.get(number);
        // Filling the ones before it may have changed everything.
        if (input && input.isConnected && isWanted(input) && offered.get(input) === mark(input) && isEmpty(input, groups))
            count += put(input, value) ? 1 : 0;
    }
    return count;
};

/** The paths of the frames that show, and the inputs to ask about. */
const lookAround = async (isFirst, wasStale, isCurrent) => {
    // Where nothing has changed all frames are where they were.
    if (!isFirst && !wasStale)
        return [];
    const veil = makeVeil();
    try {
        const found = scan(veil);
        lastShown = found.shown;
        frames = found.frames;
        return await choose(found.inputs, veil, isCurrent);
    } finally {
        veil.drop();
    }
};

const round = async (fill, isFirst) => {
    const isCurrent = () => fill === current;
    note(watch.takeRecords());
    // Where frames have come or gone since the last look, nobody can tell which is which.
    const isSettled = !isFirst && !framesMoved, wasStale = isStale;
    isStale = framesMoved = false;
    let inputs = await lookAround(isFirst, wasStale, isCurrent), path = pathOf(window);
    if (path === '?' && inputs.length) {
        const painted = await paintedNow(inputs, () => pause(300));
        inputs = inputs.filter(input => painted.has(input));
    }
    if (!isCurrent())
        return false;
    if (!isFirst && !inputs.length && !frames)
        return true;
    const isProved = path === '?';
    const answers = await ask(fill, inputs, () => {
        note(watch.takeRecords());
        path = isProved ? '?' : pathOf(window);
        return { last: true, path: path === '?' && !isProved ? 'lost' : path, shown: isSettled && !framesMoved ? lastShown : [],
            secure: isSecureContext, from: location.origin, around: [...location.ancestorOrigins] };
    });
    if (answers === null || !isCurrent())
        return false;
    const count = isProved || pathOf(window) === path ? await putAll(answers, isCurrent) : 0;
    if (count > 0)
        request('done', { k: fill, n: count });
    return true;
};

const run = async fill => {
    current = fill;
    watched = new WeakSet;
    watch.disconnect();
    isStale = framesMoved = true;
    offered = new WeakMap;
    given = new Map;
    offers = 0;
    let isFirst = true;
    for (const length of kPauses) {
        if ((length > 0 && await pause(length) === null) || fill !== current)
            return;
        note(watch.takeRecords());
        if ((isFirst || isStale || frames > 0) && !await round(fill, isFirst))
            break;
        isFirst = false;
    }
    if (fill === current)
        watch.disconnect();
};

return run;

// One fill of a document and of those that it reaches in its frames: it asks for the values of the inputs that they show, and
// looks again for some time, since many inputs come only after others have been filled.
//
// The functions with a star are the steps of a fill. What they yield is for the program: an operation and its data; they go
// on when it has answered, and when it does not, they never do. So nothing may be held over a yield that has to be undone.

// Milliseconds between the looks of one fill, which ends on the C++ side a little later.
const kPauses = [0, 50, 200, 500, 800, 1000];
// A page with more elements or inputs than this is not looked at any further.
const kElements = 60000, kRoots = 1000, kExamined = 4000, kOffered = 2000;
// Characters of one request: escaped, nine times as many at worst, and the engine takes two million.
const kRequest = 60000, kInputsOfRequest = 500;
const kSliceMs = 40;
// For an input that it is asked about, the engine may have to go through all elements of the page: so many in all, and it is
// not asked where that is enough for a few inputs only.
const kHits = 1e7, kFewInputs = 200;
// A huge document is looked at from its beginning for so long, and what comes after that is left out.
const kLookMs = 800;

const kFrames = new Set(['iframe', 'frame', 'object', 'embed']);
const frameWindows = new Map([['iframe', getter(HTMLIFrameElement, 'contentWindow')],
    ['frame', getter(HTMLFrameElement, 'contentWindow')], ['object', getter(HTMLObjectElement, 'contentWindow')]]);
// All elements but the most frequent ones that cannot have a shadow tree: naming more of them takes longer than looking at them.
const kNotable = ':not(td,tr,option,label,a,li,br)';

const pause = milliseconds => ['pause', milliseconds];

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

/** The document of a frame of this origin, whose inputs are looked at from here; null for others. */
const innerOf = view => {
    try {
        return view && view.origin === window.origin ? view.document : null;
    } catch {
        return null;
    }
};

let isStale = true, framesMoved = true;
const note = records => {
    isStale = isStale || records.length > 0;
    framesMoved = framesMoved || records.length > 2000 || records.some(record =>
        [...record.addedNodes, ...record.removedNodes].some(node => nodeType(node) === 1 &&
            (kFrames.has(localName(node)) || findIn(node, 'iframe,frame,object,embed'))));
};
const watch = new MutationObserver(note);
let watched = new WeakSet, entered = [];

/** Notes what has changed since the last time, in documents and in what stands in their frames. */
const catchUp = () => {
    note(watch.takeRecords());
    isStale = isStale || entered.some(([view, inner]) => innerOf(view) !== inner);
};

/**
 * The inputs of the document and of what belongs to it, without those that nobody wants filled, and the ways to the frames of
 * others, as the elements around them.
 */
const scan = veil => {
    const found = { inputs: [], others: [], size: 0, traits: { isFlat: true, hasInert: false, inputs: 0 } };
    let elements = 0, roots = 0, frames = 0;
    entered = [];
    const visit = (root, depth, way) => {
        if (depth > 30 || ++roots > kRoots)
            return;
        veil.add(root);
        if (!watched.has(root)) {
            watched.add(root);
            watch.observe(root, { childList: true, subtree: true, attributes: true });
        }
        found.size += all(root, '*').length;
        found.traits.isFlat = found.traits.isFlat && nodeType(root) === 9;
        found.traits.hasInert = found.traits.hasInert || all(root, '[inert]').length > 0;
        const unwanted = new Set(all(root, kUnwantedInput));
        for (const element of all(root, kNotable)) {
            if (++elements > kElements) {
                found.traits.isFlat = false;
                return;
            }
            const name = localName(element);
            if (name === 'input' || name === 'select' || name === 'textarea') {
                if (found.inputs.length < kExamined && !unwanted.has(element))
                    found.inputs.push(element);
            } else if (frameWindows.has(name)) {
                if (++frames <= 200)
                    enter(element, frameWindows.get(name)(element), depth, [...way, element]);
            } else {
                const shadow = shadowOf(element);
                if (shadow)
                    visit(shadow, depth + 1, way);
            }
        }
    };
    const enter = (frame, view, depth, way) => {
        const inner = innerOf(view);
        entered.push([view, inner]);
        if (inner)
            visit(inner, depth + 1, way);
        else if (view)
            found.others.push({ view, way });
    };
    visit(document, 0, []);
    found.traits.inputs = found.inputs.length;
    return found;
};

/** The paths of all frames on these ways, as far as the user can see them. */
const shownOn = (ways, looks) => {
    const paths = new Set, isShown = new Map;
    for (const { view, way } of ways) {
        for (const frame of way) {
            if (!isShown.has(frame))
                isShown.set(frame, frameShows(frame, looks));
        }
        const path = way.every(frame => isShown.get(frame)) ? pathOf(view) : '?';
        for (let end = path.length; path !== '?' && end > 0; end = path.lastIndexOf('.', end - 1))
            paths.add(path.slice(0, end));
    }
    return [...paths];
};

// --- one fill ---

let offered = new WeakMap, given = new Map, offers = 0, others = 0, lastShown = [];

/** A choice list is another one when its alternatives have changed. */
const mark = (input, type) => {
    if (type !== kSelect)
        return 'input';
    const options = input.options, last = options.length - 1;
    return options.length + '|' + (last < 0 ? '' : short(options[0].text) + '|' + short(options[last].text));
};

const isOpen = (input, type, groups) => offered.get(input) !== mark(input, type) && isEmpty(input, type, groups);

/** Of the inputs, those that may be filled and have not been asked about. */
function* choose({ inputs, size, traits }, path, veil) {
    const groups = new Map;
    const open = [], end = performance.now() + kLookMs / 4;
    for (const input of inputs) {
        if (open.length + offers >= kOffered || performance.now() > end)
            break;
        const type = input.type;
        if (isOfUse(input, type) && isOpen(input, type, groups))
            open.push(input);
    }
    if (!open.length)
        return open;
    // Where a frame stands nobody can tell who is in no list of frames, so only what the engine says counts.
    const isProof = path === '?';
    const margin = window === window.top ? marginOf(newLooks(veil)) : '0px';
    const most = kHits / size, isAsked = isProof || most >= kFewInputs;
    const painted = isAsked ? yield* paintedOf(open.slice(0, most), margin) : new Map;
    const chosen = [], stop = performance.now() + kLookMs;
    let looks = newLooks(veil, traits), until = performance.now() + kSliceMs;
    for (const input of open) {
        if (performance.now() > stop)
            break;
        if (performance.now() > until) {
            const wasLifted = veil.isLifted();
            veil.drop();
            yield pause(0);
            looks = newLooks(veil, traits);
            // In a large document lifting the veil takes longer than looking at many inputs.
            const start = performance.now();
            if (wasLifted) {
                veil.lift();
                reach(input, looks, 1);
            }
            until = performance.now() + Math.max(kSliceMs, 5 * (performance.now() - start));
        }
        const entry = painted.get(input);
        const style = getComputedStyle(input);
        if (isInked(style) && ((entry && isPainted(input, entry, style, looks)) || (!isProof && isFound(input, looks))))
            chosen.push(input);
    }
    return chosen;
}

/**
 * Asks for the values of these inputs, in as many requests as it takes; the last one is answered with all of them, and has
 * what `report` gives then. A request is a line for what is told of the frame, and one for each input.
 */
function* ask(inputs, report) {
    const labels = new Map, documents = new Map([[document, 0]]);
    const numberOf = root => {
        const inner = nodeType(root) === 9 ? root : ownerDocument(root);
        if (!documents.has(inner))
            documents.set(inner, documents.size);
        return documents.get(inner);
    };
    let part = [], size = 0;
    const requestFor = told => ['inputs', [told, ...part].join('\n')];
    for (const input of inputs) {
        offered.set(input, mark(input, input.type));
        given.set(++offers, input);
        const root = rootNode(input);
        const told = describe(input, root, offers, numberOf(root), labels);
        if (size + told.length > kRequest || part.length >= kInputsOfRequest) {
            yield requestFor('{}');
            part = [];
            size = 0;
        }
        part.push(told);
        size += told.length;
    }
    return JSON.parse(yield requestFor(JSON.stringify(report())));
}

/** Whether an input is still in a document, and that in a window. */
const isThere = input => input.isConnected && viewOf(ownerDocument(input)) !== null;

function* putAll(answers) {
    const groups = { get: root => chosenGroups(root), has: () => true };
    let count = 0, until = performance.now() + kSliceMs;
    // While the program answers or there is a pause, frames may have gone on to other documents.
    catchUp();
    for (const [number, value] of answers) {
        if (performance.now() > until) {
            yield pause(0);
            catchUp();
            until = performance.now() + kSliceMs;
        }
        const input = given.get(number), type = input && input.type;
        // Filling the ones before it may have changed everything, which is seen first.
        note(watch.takeRecords());
        if (input && (!isStale || (isThere(input) && isWanted(input, type))) && offered.get(input) === mark(input, type) &&
            isEmpty(input, type, groups))
            count += put(input, type, value) ? 1 : 0;
    }
    return count;
}

/** The inputs to ask about; notes the frames of others that show. */
function* lookAround(isFirst, wasStale, path) {
    // Where nothing has changed all frames are where they were.
    if (!isFirst && !wasStale)
        return [];
    const veil = makeVeil();
    try {
        const found = scan(veil);
        others = found.others.length;
        lastShown = others ? shownOn(found.others, newLooks(veil)) : [];
        veil.drop();
        return yield* choose(found, path, veil);
    } finally {
        veil.drop();
    }
}

function* round(isFirst) {
    catchUp();
    // Where frames have come or gone since the last look, nobody can tell which is which.
    const isSettled = !isFirst && !framesMoved, wasStale = isStale;
    isStale = framesMoved = false;
    let path = pathOf(window);
    const isProved = path === '?', inputs = yield* lookAround(isFirst, wasStale, path);
    if (!isFirst && !inputs.length && !others)
        return;
    const answers = yield* ask(inputs, () => {
        note(watch.takeRecords());
        path = isProved ? '?' : pathOf(window);
        return { last: true, path: path === '?' && !isProved ? 'lost' : path, shown: isSettled && !framesMoved ? lastShown : [],
            secure: isSecureContext, from: location.origin, around: [...location.ancestorOrigins] };
    });
    const count = isProved || pathOf(window) === path ? yield* putAll(answers) : 0;
    if (count > 0)
        yield ['done', count];
}

return function* () {
    watched = new WeakSet;
    watch.disconnect();
    isStale = framesMoved = true;
    offered = new WeakMap;
    given = new Map;
    entered = [];
    offers = 0;
    let isFirst = true;
    for (const length of kPauses) {
        if (length > 0)
            yield pause(length);
        catchUp();
        if (isFirst || isStale || others > 0)
            yield* round(isFirst);
        isFirst = false;
    }
    watch.disconnect();
};

// How a document takes part in fills. Only this much runs in every document; makeFill() holds the other parts, which nobody
// reads before the first fill.

let makeSteps = null, steps = null, current = '';

/** The operation that a fill asks of the program next, once that has answered the one before, and its data; null at its end. */
const step = (fill, answer) => {
    if (fill !== current)
        return null;
    try {
        const { done, value } = steps.next(answer);
        return done ? null : value;
    } catch {
        // What a page does to its documents meanwhile is no error of its scripts.
        return null;
    }
};

/** Begins a fill in place of the one before; gives what it asks first. */
const begin = fill => {
    makeSteps = makeSteps || makeFill();
    current = fill;
    steps = makeSteps();
    return step(fill);
};

// The page itself is driven by the program, which takes the operation and its data in two lines.
const inLines = asked => asked && asked.join('\n');
globalThis.corvaneFill = { begin: fill => inLines(begin(fill)), step: (fill, answer) => inLines(step(fill, answer)) };

/** A request of a frame to the program; null when that refuses it. */
const request = (fill, op, data) => new Promise(done => {
    const call = new XMLHttpRequest;
    call.onload = () => done(call.responseText);
    call.onerror = () => done(null);
    call.open('GET', 'engine://fill/' + op + '?t=%TOKEN%&k=' + fill + '&d=' + encodeURIComponent(data));
    call.send();
});

const drive = async fill => {
    for (let asked = begin(fill); asked;) {
        const answer = await request(fill, ...asked);
        if (answer === null)
            return;
        asked = step(fill, answer);
    }
};

/** Waits for the next fill; there is always one request open, so that a fill can begin while another one runs. */
const wait = async fill => {
    for (;;) {
        fill = await request(fill, 'wait', '');
        if (!fill)
            return;
        drive(fill);
    }
};

/** Whether the document around this one looks after it: one of the same origin that finds this frame. */
const isReached = () => {
    try {
        const frame = window.frameElement;
        if (!frame || window.parent.origin !== window.origin || !['iframe', 'frame', 'object'].includes(frame.localName))
            return false;
        for (let root = frame.getRootNode(); root.nodeType === 11; root = root.host.getRootNode()) {
            if (root.mode === 'closed')
                return false;
        }
        return true;
    } catch {
        return false;
    }
};

if (window !== window.top && !isReached()) {
    // A page can give its elements the names of what a document has.
    if (Reflect.apply(Object.getOwnPropertyDescriptor(Document.prototype, 'readyState').get, document, []) !== 'loading')
        wait('');
    else
        window.addEventListener('DOMContentLoaded', () => wait(''), { once: true });
}

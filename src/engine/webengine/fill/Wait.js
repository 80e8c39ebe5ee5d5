// How a document waits for a fill and speaks with the program. Only this much runs in every document; makeFill() holds the
// other parts, which nobody reads before the first fill.

// Documents that may not send requests (local files) leave them here, and the program fetches them.
const outbox = new Map;
let isDirect = false, requests = 0;

const request = (op, values) => new Promise(done => {
    if (isDirect && op !== 'wait') {
        outbox.set(++requests, { op, values, done });
        return;
    }
    const call = new XMLHttpRequest;
    call.onload = () => done(call.responseText);
    call.onerror = () => done(null);
    const query = Object.entries(values).map(([name, value]) => '&' + name + '=' + encodeURIComponent(value)).join('');
    call.open('GET', 'engine://fill/' + op + '?t=%TOKEN%' + query);
    call.send();
});

let fillIn = null;
const run = fill => {
    fillIn = fillIn || makeFill();
    // What a page does to its documents meanwhile is no error of its scripts.
    fillIn(fill).catch(() => {});
};

/** Waits for the next fill; there is always one request open, so that a fill can begin while another one runs. */
const wait = async fill => {
    for (;;) {
        fill = await request('wait', { k: fill, m: window === window.top ? 1 : 0 });
        if (!fill)
            return;
        isDirect = false;
        run(fill);
    }
};

globalThis.corvaneFill = {
    begin: fill => {
        isDirect = true;
        run(fill);
    },
    take: () => JSON.stringify([...outbox].filter(([, call]) => !call.isTaken).map(([number, call]) => {
        call.isTaken = true;
        return [number, call.op, call.values];
    })),
    give: (number, answer) => {
        const call = outbox.get(number);
        outbox.delete(number);
        if (call)
            call.done(answer);
    },
};

if (Reflect.apply(Object.getOwnPropertyDescriptor(Document.prototype, 'readyState').get, document, []) !== 'loading')
    wait('');
else
    window.addEventListener('DOMContentLoaded', () => wait(''), { once: true });

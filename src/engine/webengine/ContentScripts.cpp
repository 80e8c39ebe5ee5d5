#include "engine/webengine/ContentScripts.h"

#include "base/Strings.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// Texts of the boxes.
constexpr int kFlashTitle = 20950;
constexpr int kFlashShort = 20951;
constexpr int kFlashLink = 20952;
constexpr int kPluginTitle = 20953;
constexpr int kPluginShort = 20954;

/// The engine may run scripts of a page that has gone in frames of another page of the same process. So a script that
/// takes something away asks first whether it still counts. Where no answer can be had, it does.
QString leaveIfStale(const QString &token)
{
    return uR"JS(
try {
    const x = new XMLHttpRequest;
    x.open('GET', 'engine://content/counts?t=%1', false);
    x.send();
    if (x.responseText === 'no') return;
} catch (e) {}
)JS"_s.arg(token);
}

/// The box: everything in a closed shadow tree, so that no style of the page gets in. The host outside it is held by
/// styles that no rule of a page outranks, and takes the size and the place of the element, which stays in the document
/// hidden: scripts of the page go on finding it.
const QString &boxSource()
{
    static const QString source = uR"JS(
const css = `a, div { all: initial; box-sizing: border-box; display: flex; align-items: center; justify-content: center;
    gap: 6px; width: 100%; height: 100%; padding: 3px; overflow: hidden; font: 13px/1.35 system-ui, sans-serif;
    text-align: center; color: #333f4c; background: linear-gradient(#f6f7f9, #e1e6eb); border: 1px solid #a9b3be;
    border-radius: 3px; }
a { cursor: pointer; }
a:focus-visible { outline: 2px solid #2a5d95; outline-offset: -3px; }
svg { flex: none; width: 20px; height: 20px; color: #6c7885; }
.title, .short, .go { display: none; }
.large { flex-direction: column; gap: 8px; }
.large svg { width: 32px; height: 32px; }
.wide { gap: 12px; }
.large .title, .wide .title { display: block; font-weight: 600; }
.large .go, .wide .go { display: block; padding: 4px 14px; color: #fff; background: #2a5d95; border-radius: 3px; }
a:hover .go { background: #1f4b7c; }
.middle { font-size: 12px; gap: 4px; }
.middle .short { display: block; white-space: nowrap; }
a.middle .short { color: #1f4b7c; text-decoration: underline; }
.small { padding: 0; border-radius: 0; }
.small svg { width: min(20px, 100%); height: min(20px, 100%); }`;

const make = (name, content, attributes) => {
    const e = name === 'svg' || name === 'path' ? document.createElementNS('http://www.w3.org/2000/svg', name)
                                                : document.createElement(name);
    for (const key in attributes) e.setAttribute(key, attributes[key]);
    for (const one of content) e.append(one);
    return e;
};

const kept = ['float', 'clear', 'position', 'top', 'right', 'bottom', 'left', 'z-index', 'margin-top', 'margin-right',
    'margin-bottom', 'margin-left', 'vertical-align', 'align-self', 'justify-self', 'order', 'flex-grow', 'flex-shrink',
    'flex-basis', 'grid-row-start', 'grid-row-end', 'grid-column-start', 'grid-column-end', 'max-width', 'max-height',
    'visibility', 'opacity'];

/// Width or height as the element has it: percentages go on following the page, otherwise what is laid out.
const side = (e, style, name, fallback) => {
    const own = (e.getAttribute(name) || '').trim();
    if (/^\d+(\.\d+)?%$/.test(own)) return own;
    const set = style.getPropertyValue(name);
    if (/^\d+(\.\d+)?(px|%)$/.test(set)) return set;
    return /^\d+/.test(own) ? parseInt(own, 10) + 'px' : fallback;
};

const boxFor = (e, texts, address) => {
    const style = getComputedStyle(e);
    if (style.display === 'none') return null;
    const host = document.createElement('span');
    const set = (name, value) => host.style.setProperty(name, value, 'important');
    set('all', 'initial');
    for (const name of kept) set(name, style.getPropertyValue(name));
    set('display', style.display.startsWith('inline') ? 'inline-block' : 'block');
    set('box-sizing', 'border-box');
    set('overflow', 'hidden');
    const measure = () => {
        set('width', side(e, style, 'width', '300px'));
        set('height', side(e, style, 'height', '150px'));
    };
    measure();
    // The styles that say how large it is may still be on their way.
    if (document.readyState !== 'complete') window.addEventListener('load', measure, { once: true });

    const sign = make('svg', [make('path', [], { d: 'M12 2.5a9.5 9.5 0 1 0 0 19a9.5 9.5 0 1 0 0-19zM5.4 5.4l13.2 13.2',
            'stroke-width': 2, stroke: 'currentColor', fill: 'none' }),
        make('path', [], { d: 'M13.4 6l-5.2 7h3.2l-.8 5l5.2-7h-3.2z', fill: 'currentColor' })],
        { viewBox: '0 0 24 24', 'aria-hidden': 'true' });
    const content = [sign, make('span', [texts.title], { class: 'title' }), make('span', [texts.short], { class: 'short' })];
    if (texts.link) content.push(make('span', [texts.link], { class: 'go' }));
    const label = texts.link ? texts.title + ' ' + texts.link : texts.title;
    const attributes = { title: label, 'aria-label': label };
    // A sandboxed frame may not send the page elsewhere, but it may go elsewhere itself; both are told and refused.
    const inner = address
        ? make('a', content, { ...attributes, href: address, target: self.origin === 'null' ? '_self' : '_top' })
        : make('div', content, { ...attributes, role: 'img' });

    const root = host.attachShadow({ mode: 'closed' });
    const sheet = new CSSStyleSheet;
    sheet.replaceSync(css);
    root.adoptedStyleSheets = [sheet];
    root.append(inner);
    const fit = (width, height) => {
        inner.className = width >= 190 && height >= 110 ? 'large' : width >= 380 && height >= 36 ? 'wide'
            : width >= 116 && height >= 22 ? 'middle' : 'small';
    };
    new ResizeObserver(entries => fit(entries[0].contentRect.width, entries[0].contentRect.height)).observe(host);
    e.before(host);
    e.style.setProperty('display', 'none', 'important');
    return host;
};
)JS"_s;
    return source;
}

/// Which elements the policy is about, and what happens to them.
const QString &watchSource()
{
    static const QString source = uR"JS(
const boxes = new WeakMap, stripped = new WeakMap, waiting = new Set;
let isBlocked = false, hasAsked = false;

const ask = (about, done) => {
    const x = new XMLHttpRequest;
    if (done) x.onload = () => done(x.responseText);
    x.open('GET', 'engine://content/' + about + '?t=' + C.token + '&u=' + encodeURIComponent(location.href.slice(0, 5000)));
    x.send();
};

const isMovie = address => /\.(swf|spl)$/i.test(String(address || '').split(/[?#]/)[0]);
const isFlash = e => /shockwave-flash|futuresplash/i.test(e.getAttribute('type') || '')
    || /d27cdb6e-ae6d-11cf-96b8-444553540000/i.test(e.getAttribute('classid') || '')
    || isMovie(e.getAttribute('data')) || isMovie(e.getAttribute('src'))
    || (e.localName === 'object' && Array.from(e.querySelectorAll('param')).some(p =>
        /^(movie|src)$/i.test(p.getAttribute('name') || '') && isMovie(p.getAttribute('value'))));
const isPlugin = e => {
    const address = e.getAttribute('data') || e.getAttribute('src') || '', type = e.getAttribute('type') || '';
    if (/^image\//i.test(type) || /\.(png|jpe?g|gif|svg|webp|bmp|ico)$/i.test(address.split(/[?#]/)[0])) return false;
    return !!(address || type || e.getAttribute('classid'));
};

const replace = (e, texts, address) => {
    if (boxes.has(e) || !e.isConnected) return;
    boxes.set(e, null);
    boxes.set(e, boxFor(e, texts, address));
};
const blockFlash = () => {
    isBlocked = true;
    for (const e of waiting) replace(e, C.flash, C.address);
    waiting.clear();
};
globalThis.blockFlash = blockFlash;

const judgePlugin = e => {
    const around = e.parentElement && e.parentElement.closest('object');
    if (boxes.has(e) || (around && (boxes.has(around) || waiting.has(around)))) return;
    if (isFlash(e)) {
        if (isBlocked) { replace(e, C.flash, C.address); return; }
        if (!C.plugins) replace(e, C.plugin, '');
        else waiting.add(e);
        if (!hasAsked) { hasAsked = true; ask('flash', answer => { if (answer === 'block') blockFlash(); }); }
    } else if (!C.plugins && isPlugin(e)) {
        replace(e, C.plugin, '');
    }
};

/// Takes the sources away before the engine asks for them, which it does only after what runs now. A page that puts them
/// back again and again loses the element.
const judgeVideo = v => {
    const sources = Array.from(v.querySelectorAll('source[src]'));
    if (!v.hasAttribute('src') && !sources.length && !v.srcObject) return;
    v.removeAttribute('src');
    for (const one of sources) one.removeAttribute('src');
    if (v.srcObject) v.srcObject = null;
    v.load();
    const times = (stripped.get(v) || 0) + 1;
    stripped.set(v, times);
    if (times > 20) v.remove();
};

const judge = e => {
    if (e.localName === 'object' || e.localName === 'embed') judgePlugin(e);
    else if (e.localName === 'param') { if (e.parentElement) judge(e.parentElement); }
    else if (C.video) return;
    else if (e.localName === 'video') judgeVideo(e);
    else if (e.localName === 'source' && e.parentElement && e.parentElement.localName === 'video')
        judgeVideo(e.parentElement);
};
const wanted = C.video ? 'object, embed' : 'object, embed, video';
new MutationObserver(records => {
    for (const record of records) {
        if (record.type === 'attributes') { judge(record.target); continue; }
        for (const e of record.addedNodes) {
            if (e.nodeType !== 1) continue;
            judge(e);
            if (e.firstElementChild) for (const inner of e.querySelectorAll(wanted)) judge(inner);
        }
        // A box goes with its element, unless that has only moved.
        for (const e of record.removedNodes) {
            const box = boxes.get(e);
            if (!box) continue;
            if (e.isConnected) e.before(box);
            else { box.remove(); boxes.delete(e); e.style.removeProperty('display'); }
        }
    }
}).observe(document, { childList: true, subtree: true, attributes: true,
    attributeFilter: ['src', 'data', 'type', 'classid'] });
for (const e of document.querySelectorAll(wanted)) judge(e);

if (window === window.top) {
    const read = () => ask('read');
    if (document.readyState === 'loading') document.addEventListener('DOMContentLoaded', read, { once: true });
    else read();
    window.addEventListener('load', () => ask('loaded'), { once: true });
}
)JS"_s;
    return source;
}

} // namespace

QString contentScript(const ContentScriptOptions &options)
{
    const QJsonObject flash{{u"title"_s, LoadResString(kFlashTitle)},
                            {u"short"_s, LoadResString(kFlashShort)},
                            {u"link"_s, LoadResString(kFlashLink)}};
    const QJsonObject plugin{{u"title"_s, LoadResString(kPluginTitle)}, {u"short"_s, LoadResString(kPluginShort)}};
    const QJsonObject settings{
        {u"token"_s, options.token}, {u"video"_s, options.hasVideo}, {u"plugins"_s, options.hasPlugins},
        {u"flash"_s, flash},         {u"plugin"_s, plugin},          {u"address"_s, u"corvane://flash/ENABLEFLASH"_s}};
    return u"(function () { 'use strict';\nconst C = "_s +
           QString::fromUtf8(QJsonDocument(settings).toJson(QJsonDocument::Compact)) + u';' +
           (options.hasVideo && options.hasPlugins ? QString() : leaveIfStale(options.token)) + boxSource() +
           watchSource() + u"})();"_s;
}

QString blockFlashScript()
{
    return u"globalThis.blockFlash && globalThis.blockFlash()"_s;
}

QString videoScript(const QString &token)
{
    static const QString script = uR"JS(
    const R = Reflect.apply, M = HTMLMediaElement.prototype, load = M.load, E = Element.prototype,
          take = E.removeAttribute, has = E.hasAttribute, find = E.querySelectorAll,
          width = Object.getOwnPropertyDescriptor(HTMLVideoElement.prototype, 'videoWidth').get,
          parent = Object.getOwnPropertyDescriptor(Node.prototype, 'parentElement').get,
          each = Array.prototype.forEach;
    const isVideo = e => { try { R(width, e, []); return true; } catch (x) { return false; } };
    const strip = v => {
        const sources = R(find, v, ['source[src]']);
        if (!R(has, v, ['src']) && !sources.length) return;
        R(take, v, ['src']);
        R(each, sources, [one => R(take, one, ['src'])]);
        R(load, v, []);
    };
    const judge = e => {
        if (!e || e.nodeType !== 1) return;
        if (isVideo(e)) strip(e);
        else if (isVideo(R(parent, e, []))) strip(R(parent, e, []));
        else R(each, R(find, e, ['video']), [strip]);
    };
    const observer = new MutationObserver(records => R(each, records, [record => {
        if (record.type === 'attributes') judge(record.target);
        else { judge(record.target); R(each, record.addedNodes, [judge]); }
    }]));
    const observe = observer.observe, all = { childList: true, subtree: true, attributes: true, attributeFilter: ['src'] };
    const after = (holder, name, then) => {
        holder[name] = new Proxy(holder[name], {
            apply(own, self, list) { const made = R(own, self, list); then(made); return made; }
        });
    };
    const watchVideo = e => { if (isVideo(e)) R(observe, observer, [e, all]); };
    after(Document.prototype, 'createElement', watchVideo);
    after(Document.prototype, 'createElementNS', watchVideo);
    after(E, 'attachShadow', root => R(observe, observer, [root, all]));
    // No attribute tells of this one, and of an address only after it has been set.
    for (const name of ['srcObject', 'src']) {
        const own = Object.getOwnPropertyDescriptor(M, name);
        Object.defineProperty(M, name, {
            configurable: false, enumerable: own.enumerable, get: own.get,
            set(value) { if (!isVideo(this)) R(own.set, this, [value]); }
        });
    }
)JS"_s;
    return u"(function () { 'use strict';"_s + leaveIfStale(token) + script + u"})();"_s;
}

QString javaScript(const QString &token)
{
    return u"(function () {"_s + leaveIfStale(token) +
           u"try { Object.defineProperty(self, 'WebAssembly', "
           u"{ value: undefined, writable: false, configurable: false }); } catch (e) {} })();"_s;
}

} // namespace engine
